#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "raycaster/core/vector/walls.cpp"
#include <hwy/foreach_target.h>

#include "raycaster/core/vector/lanes.hpp"
#include "raycaster/core/walls.hpp"

HWY_BEFORE_NAMESPACE();
namespace zv {
namespace HWY_NAMESPACE {

#if HWY_TARGET != HWY_SCALAR

// Columns that are drawn side by side, in tiles of a few rows: texels are found by stepping down all columns at once,
// then loaded one by one, then the tile is blended row by row.
struct WallBlock {
    static constexpr size_t width = 16, rows = 16;  // a cache line of the picture
    static_assert(width <= WorldStrips::padding);

    // An image stretched over the slices, one column of it for each column of the block, and its texels in a tile.
    struct Stripes {
        static constexpr uint32_t nothing = 0;

        const uint32_t* pixels[width];                       // the top of the column in the image
        HWY_ALIGN double pos[width] = {}, step[width] = {};  // row of the image
        HWY_ALIGN int32_t last[width] = {}, stride[width] = {};
        HWY_ALIGN int32_t offset[rows * width];
        HWY_ALIGN uint32_t texel[rows * width];

        Stripes() { std::fill_n(pixels, width, &nothing); }

        void set(size_t i, const Image& image, int column, double from, double by) {
            pixels[i] = image.pixels + column;
            pos[i] = from;
            step[i] = by;
            last[i] = image.height - 1;
            stride[i] = image.width;
        }
        HWY_NOINLINE void loadTexels(int count) {
            for (size_t row = 0; row < static_cast<size_t>(count) * width; row += width)
                for (size_t i = 0; i < width; i++) texel[row + i] = pixels[i][offset[row + i]];
        }
    };

    Stripes wall, light;
    HWY_ALIGN int top[width] = {}, bottom[width] = {};           // of the region between ceiling and floor
    HWY_ALIGN int sliceStart[width] = {}, sliceEnd[width] = {};  // where the wall stands
    HWY_ALIGN int start[width] = {}, end[width] = {};            // of what is drawn of it
    HWY_ALIGN int solidFog[width] = {};                          // -1: the color of the fog alone
    HWY_ALIGN uint32_t fog[width] = {}, strength[width] = {};    // weights
    HWY_ALIGN float groundFog[width] = {}, wallRows[width] = {};
    HWY_ALIGN int32_t isLit[rows * width];  // of a tile: -1 or 0
    int firstRow = INT_MAX, lastRow = 0;    // of all regions

    void prepare(const WorldStrips& world, int x0);

private:
    void prepareTexture(const WorldStrips& world, const RayHit& hit, const Slice& slice, size_t i);
};

void WallBlock::prepare(const WorldStrips& world, int x0) {
    for (size_t i = 0; i < width && x0 + static_cast<int>(i) < world.view.width; i++) {
        int x = x0 + static_cast<int>(i);
        const RayHit& hit = world.columns.hit(x);
        const Slice& slice = world.columns.slice(x);
        top[i] = world.top[static_cast<size_t>(x)];
        bottom[i] = world.bottom[static_cast<size_t>(x)];
        if (top[i] < bottom[i]) {
            firstRow = std::min(firstRow, top[i]);
            lastRow = std::max(lastRow, bottom[i]);
        }
        if (hit.outOfBounds || slice.start >= slice.end) continue;
        sliceStart[i] = slice.start;
        sliceEnd[i] = slice.end;
        prepareTexture(world, hit, slice, i);
        const Image& mask = world.flashlight;
        if (mask.empty()) continue;
        light.set(i, mask, flashlightColumn(mask, world.view, x), 0, flashlightStep(hit));
        strength[i] = static_cast<uint32_t>(flashlightStrength(hit));
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
    wall.set(i, *image, wallTexelColumn(*image, hit), wallTexelStart(world.view, slice, step), step);
    groundFog[i] = static_cast<float>(fogs.groundAt(hit.dist));
    wallRows[i] = static_cast<float>(2 * slice.half);
}

// Finds the texels of a tile whose first row is row `y` of the screen, and carries the positions on to the next tile.
// Beyond its last row an image repeats that row, as rounding may bring the sum of the steps there; `inImage`, unless it
// is null, tells the rows before.
HWY_NOINLINE void findTexels(WallBlock::Stripes& stripes, const int* start, int y, int rows, int32_t* inImage) {
    const Ints ints;
    const Doubles doubles;
    const HalfInts halfInts;
    const size_t lanes = hn::Lanes(ints), half = lanes / 2;
    for (size_t i = 0; i < WallBlock::width; i += lanes) {
        auto pos0 = hn::Load(doubles, stripes.pos + i), pos1 = hn::Load(doubles, stripes.pos + i + half);
        const auto step0 = hn::Load(doubles, stripes.step + i), step1 = hn::Load(doubles, stripes.step + i + half);
        const auto start0 = hn::PromoteTo(doubles, hn::Load(halfInts, start + i));
        const auto start1 = hn::PromoteTo(doubles, hn::Load(halfInts, start + i + half));
        const auto last = hn::Load(ints, stripes.last + i), stride = hn::Load(ints, stripes.stride + i);
        for (int row = 0; row < rows; row++) {
            const auto here = hn::Set(doubles, y + row);
            const size_t at = static_cast<size_t>(row) * WallBlock::width + i;
            auto texY = wholeNumbers(pos0, pos1);
            hn::Store(hn::Mul(hn::Min(texY, last), stride), ints, stripes.offset + at);
            if (inImage) hn::Store(hn::VecFromMask(ints, hn::Not(hn::Gt(texY, last))), ints, inImage + at);
            pos0 = hn::IfThenElse(hn::Ge(here, start0), hn::Add(pos0, step0), pos0);
            pos1 = hn::IfThenElse(hn::Ge(here, start1), hn::Add(pos1, step1), pos1);
        }
        hn::Store(pos0, doubles, stripes.pos + i);
        hn::Store(pos1, doubles, stripes.pos + i + half);
    }
}

// groundFogAt() for a row. There the square is one of doubles, which holds all its digits: rounded, it is this one.
HWY_INLINE hn::Vec<Words> groundWeights(const WallBlock& b, size_t i, int y) {
    const Floats floats;
    auto top = hn::ConvertTo(floats, hn::Load(Ints(), b.sliceStart + i));
    auto share = hn::Div(hn::Sub(hn::Set(floats, static_cast<float>(y)), top), hn::Load(floats, b.wallRows + i));
    auto risen = hn::Mul(hn::Load(floats, b.groundFog + i), hn::Mul(share, share));
    return hn::BitCast(Words(), hn::ConvertTo(Ints(), risen));
}

// The rows `y` to `y` + `rows` - 1 of a vector of columns, the block's `i`-th and following. `whole`: the walls cover
// all of it, and are seen.
template <bool whole>
HWY_NOINLINE void drawTile(const WorldStrips& world, const WallBlock& b, bool lit, int x, size_t i, int y, int rows) {
    const Ints ints;
    const Words words;
    const Fog& fog = world.scene.fog;
    const int lanes = static_cast<int>(hn::Lanes(words));
    const auto top = hn::Load(ints, b.top + i), bottom = hn::Load(ints, b.bottom + i);
    const auto start = hn::Load(ints, b.start + i), end = hn::Load(ints, b.end + i);
    const auto sliceStart = hn::Load(ints, b.sliceStart + i), sliceEnd = hn::Load(ints, b.sliceEnd + i);
    const auto solidFog = hn::RebindMask(words, hn::MaskFromVec(hn::Load(ints, b.solidFog + i)));
    const auto strength = hn::Load(words, b.strength + i);
    const Blend towardsFog(*fog.color, hn::Load(words, b.fog + i));
    const bool hasGroundFog = fog.groundDensity > 0;
    const auto firstWeights = groundWeights(b, i, y), lastWeights = groundWeights(b, i, y + rows - 1);
    Blend towardsGround(*fog.groundColor, firstWeights);
    // The ground fog gets no thinner from row to row.
    const bool isSteady = whole && hn::AllTrue(words, hn::Eq(firstWeights, lastWeights));
    for (int row = y; row < y + rows; row++) {
        const auto here = hn::Set(ints, row), below = hn::Set(ints, row + 1);
        auto within = [&](auto first, auto past) HWY_ATTR { return hn::And(hn::Lt(first, below), hn::Lt(here, past)); };
        uint32_t* out = world.target.row(row);
        size_t at = static_cast<size_t>(row - y) * WallBlock::width + i;
        auto region = hn::RebindMask(words, within(top, bottom)), drawn = hn::RebindMask(words, within(start, end));
        if (!whole && hn::AllFalse(words, region)) continue;
        Spread spread(hn::Load(words, b.wall.texel + at));
        if (hasGroundFog) {
            if (!isSteady) {
                auto weights = groundWeights(b, i, row);
                towardsGround = Blend(*fog.groundColor, whole ? weights : hn::IfThenElseZero(drawn, weights));
            }
            towardsGround(spread);
        }
        towardsFog(spread);
        auto pixels = spread.joined();
        if (!whole) {
            pixels = hn::IfThenElse(solidFog, hn::Set(words, *fog.color), pixels);
            if (!hn::AllFalse(words, hn::AndNot(drawn, region))) {
                HWY_ALIGN uint32_t backdrop[maxLanes];
                loadBackdrop(world, row, x, lanes, backdrop);
                pixels = hn::IfThenElse(drawn, pixels, hn::Load(words, backdrop));
            }
        }
        if (lit) {
            auto reached = hn::MaskFromVec(hn::Load(ints, b.isLit + at));
            if (!whole) reached = hn::And(reached, within(sliceStart, sliceEnd));
            auto weights = hn::IfThenElseZero(hn::RebindMask(words, reached), strength);
            pixels = brightened(pixels, addedLight(Spread(hn::Load(words, b.light.texel + at)), weights));
        }
        if (whole) hn::StoreU(pixels, words, out + x);
        else store(pixels, region, out, x, world.view.width - x);
    }
}

// Whether the tile is nothing but walls that are seen.
static bool isWhole(const WorldStrips& world, const WallBlock& b, int x, size_t i, int y, int rows) {
    const Ints ints;
    auto beginsLater = hn::Gt(hn::Load(ints, b.start + i), hn::Set(ints, y));
    auto endsSooner = hn::Lt(hn::Load(ints, b.end + i), hn::Set(ints, y + rows));
    auto isHidden = hn::MaskFromVec(hn::Load(ints, b.solidFog + i));
    return hn::AllFalse(ints, hn::Or(hn::Or(beginsLater, endsSooner), isHidden)) &&
        x + static_cast<int>(hn::Lanes(ints)) <= world.view.width;
}

void drawWalls(const WorldStrips& world, int from, int to) {
    const size_t lanes = std::min(hn::Lanes(Ints()), WallBlock::width);
    const bool lit = !world.flashlight.empty();
    for (int x = from; x < to; x += static_cast<int>(WallBlock::width)) {
        WallBlock b;
        b.prepare(world, x);
        for (int y = b.firstRow; y < b.lastRow; y += static_cast<int>(WallBlock::rows)) {
            int rows = std::min(b.lastRow - y, static_cast<int>(WallBlock::rows));
            findTexels(b.wall, b.sliceStart, y, rows, nullptr);
            b.wall.loadTexels(rows);
            if (lit) {
                findTexels(b.light, b.sliceStart, y, rows, b.isLit);
                b.light.loadTexels(rows);
            }
            for (size_t i = 0; i < WallBlock::width; i += lanes) {
                int column = x + static_cast<int>(i);
                auto draw = isWhole(world, b, column, i, y, rows) ? drawTile<true> : drawTile<false>;
                draw(world, b, lit, column, i, y, rows);
            }
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
