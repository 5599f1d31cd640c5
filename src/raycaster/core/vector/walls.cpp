#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "raycaster/core/vector/walls.cpp"
#include <hwy/foreach_target.h>

#include "raycaster/core/vector/lanes.hpp"
#include "raycaster/core/walls.hpp"

HWY_BEFORE_NAMESPACE();
namespace zv {
namespace HWY_NAMESPACE {

#if HWY_TARGET != HWY_SCALAR

// Columns that are drawn side by side. Texels are collected down each column, as the positions step by addition, into
// a tile of a few rows; then the tile is blended row by row.
struct WallBlock {
    static constexpr size_t width = 16, rows = 16;  // a cache line of the picture
    static_assert(width <= WorldStrips::padding);

    // One texture or mask, from the top of the wall on down.
    struct Stripe {
        const uint32_t* pixels = nullptr;  // of its column in the image; null: nothing
        int stride, last;                  // of the image: its width, its last row
        double pos, step;
        int row, end;  // on the screen; `row` is the next one
    };

    Stripe texture[width], mask[width];
    HWY_ALIGN int top[width] = {}, bottom[width] = {};         // of the region between ceiling and floor
    HWY_ALIGN int start[width] = {}, end[width] = {};          // of what is drawn of the wall
    HWY_ALIGN int solidFog[width] = {};                        // -1: the color of the fog alone
    HWY_ALIGN uint32_t fog[width] = {}, strength[width] = {};  // weights
    HWY_ALIGN float groundFog[width] = {}, wallTop[width] = {}, wallRows[width] = {};
    HWY_ALIGN uint32_t texels[rows * width] = {}, light[rows * width] = {};
    int firstRow = INT_MAX, lastRow = 0;  // of all regions

    void prepare(const WorldStrips& world, int x0);

private:
    void prepareTexture(const WorldStrips& world, const RayHit& hit, const Slice& slice, size_t i);
};

void WallBlock::prepare(const WorldStrips& world, int x0) {
    for (size_t i = 0; i < width && x0 + static_cast<int>(i) < world.view.width; i++) {
        int x = x0 + static_cast<int>(i);
        const RayHit& hit = world.columns.hits[static_cast<size_t>(x)];
        const Slice& slice = world.columns.slices[static_cast<size_t>(x)];
        top[i] = world.top[static_cast<size_t>(x)];
        bottom[i] = world.bottom[static_cast<size_t>(x)];
        if (top[i] < bottom[i]) {
            firstRow = std::min(firstRow, top[i]);
            lastRow = std::max(lastRow, bottom[i]);
        }
        if (hit.outOfBounds || slice.start >= slice.end) continue;
        prepareTexture(world, hit, slice, i);
        const Image& light = world.flashlight;
        if (light.empty()) continue;
        mask[i] = {light.pixels + flashlightColumn(light, world.view, x), light.width, light.height - 1, 0,
            flashlightStep(hit), slice.start, slice.end};
        strength[i] = static_cast<uint32_t>(flashlightStrength(hit)) * 0x10001u;
    }
}

void WallBlock::prepareTexture(const WorldStrips& world, const RayHit& hit, const Slice& slice, size_t i) {
    const Fog& fogs = world.scene.fog;
    const Image* image = world.scene.texture(hit.textureIndex);
    fog[i] = static_cast<uint32_t>(fogs.at(hit.dist));
    solidFog[i] = fog[i] >= 255 ? -1 : 0;
    if (!solidFog[i] && !image) return;
    start[i] = slice.start;
    end[i] = slice.end;
    if (solidFog[i]) return;
    double step = wallTexelStep(*image, slice);
    texture[i] = {image->pixels + wallTexelColumn(*image, hit), image->width, image->height - 1,
        wallTexelStart(world.view, slice, step), step, slice.start, slice.end};
    groundFog[i] = static_cast<float>(fogs.groundAt(hit.dist));
    wallTop[i] = static_cast<float>(slice.start);
    wallRows[i] = static_cast<float>(2 * slice.half);
}

// Fills a column of a tile whose first row is row `y` of the screen. Beyond its last row a texture repeats that row, as
// rounding may bring the sum of the steps there; a flashlight ends.
template <bool endsWithImage> HWY_NOINLINE void collect(WallBlock::Stripe& stripe, int y, int rows, uint32_t* column) {
    int from = std::max(stripe.row, y), to = std::min(stripe.end, y + rows);
    if (!stripe.pixels || from >= to) return;
    double pos = stripe.pos;
    column += static_cast<size_t>(from - y) * WallBlock::width;
    for (int row = from; row < to; row++, pos += stripe.step, column += WallBlock::width) {
        int texY = static_cast<int>(pos);
        if (endsWithImage && texY > stripe.last) {
            stripe.pixels = nullptr;
            return;
        }
        *column = stripe.pixels[static_cast<ptrdiff_t>(std::min(texY, stripe.last)) * stripe.stride];
    }
    stripe.pos = pos;
    stripe.row = to;
}

// groundFogAt() for a row, in the same single and double precision.
HWY_INLINE hn::Vec<Words> groundWeights(const WallBlock& b, size_t i, int y) {
    const Floats floats;
    const Doubles doubles;
    const HalfFloats halfFloats;
    auto share = hn::Div(hn::Sub(hn::Set(floats, static_cast<float>(y)), hn::Load(floats, b.wallTop + i)),
        hn::Load(floats, b.wallRows + i));
    auto low = hn::PromoteTo(doubles, hn::LowerHalf(halfFloats, share));
    auto high = hn::PromoteTo(doubles, hn::UpperHalf(halfFloats, share));
    auto squared =
        hn::Combine(floats, hn::DemoteTo(halfFloats, hn::Mul(high, high)), hn::DemoteTo(halfFloats, hn::Mul(low, low)));
    return hn::BitCast(Words(), hn::ConvertTo(Ints(), hn::Mul(hn::Load(floats, b.groundFog + i), squared)));
}

// The rows `y` to `y` + `rows` - 1 of a vector of columns, the block's `i`-th and following.
HWY_NOINLINE void drawTile(const WorldStrips& world, const WallBlock& b, bool lit, int x, size_t i, int y, int rows) {
    const Ints ints;
    const Words words;
    const Fog& fog = world.scene.fog;
    const auto top = hn::Load(ints, b.top + i), bottom = hn::Load(ints, b.bottom + i);
    const auto start = hn::Load(ints, b.start + i), end = hn::Load(ints, b.end + i);
    const auto solidFog = hn::RebindMask(words, hn::MaskFromVec(hn::Load(ints, b.solidFog + i)));
    const auto strength = hn::BitCast(Pairs(), hn::Load(words, b.strength + i));
    const Blend towardsFog(*fog.color, hn::Load(words, b.fog + i));
    for (int row = y; row < y + rows; row++) {
        const auto here = hn::Set(ints, row), below = hn::Set(ints, row + 1);
        auto region = hn::RebindMask(words, hn::And(hn::Lt(top, below), hn::Lt(here, bottom)));
        if (hn::AllFalse(words, region)) continue;
        auto drawn = hn::RebindMask(words, hn::And(hn::Lt(start, below), hn::Lt(here, end)));
        size_t at = static_cast<size_t>(row - y) * WallBlock::width + i;
        Spread spread(hn::Load(words, b.texels + at));
        if (fog.groundDensity > 0) Blend(*fog.groundColor, hn::IfThenElseZero(drawn, groundWeights(b, i, row)))(spread);
        towardsFog(spread);
        auto pixels = hn::IfThenElse(solidFog, hn::Set(words, *fog.color), spread.joined());
        uint32_t* out = world.target.row(row);
        int count = world.view.width - x;
        if (!hn::AllFalse(words, hn::AndNot(drawn, region))) {
            HWY_ALIGN uint32_t backdrop[maxLanes];
            loadBackdrop(world, row, x, backdrop);
            pixels = hn::IfThenElse(drawn, pixels, hn::Load(words, backdrop));
        }
        if (lit) pixels = addLight(pixels, hn::Load(words, b.light + at), strength);
        store(pixels, region, out, x, count);
    }
}

void drawWalls(const WorldStrips& world, int from, int to) {
    const size_t lanes = std::min(hn::Lanes(Ints()), WallBlock::width);
    const bool lit = !world.flashlight.empty();
    for (int x = from; x < to; x += static_cast<int>(WallBlock::width)) {
        WallBlock b;
        b.prepare(world, x);
        for (int y = b.firstRow; y < b.lastRow; y += static_cast<int>(WallBlock::rows)) {
            int rows = std::min(b.lastRow - y, static_cast<int>(WallBlock::rows));
            if (lit) std::fill(std::begin(b.light), std::end(b.light), 0u);
            for (size_t i = 0; i < WallBlock::width; i++) {
                collect<false>(b.texture[i], y, rows, b.texels + i);
                if (lit) collect<true>(b.mask[i], y, rows, b.light + i);
            }
            for (size_t i = 0; i < WallBlock::width; i += lanes)
                drawTile(world, b, lit, x + static_cast<int>(i), i, y, rows);
        }
    }
}

#else
void drawWalls(const WorldStrips&, int, int) {}
#endif

}  // namespace HWY_NAMESPACE
}  // namespace zv
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace zv {

HWY_EXPORT(drawWalls);

void drawWallsByVectors(const WorldStrips& world, int from, int to) {
    HWY_DYNAMIC_DISPATCH(drawWalls)(world, from, to);
}

}  // namespace zv
#endif
