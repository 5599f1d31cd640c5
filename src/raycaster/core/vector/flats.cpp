#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "raycaster/core/vector/flats.cpp"
#include <hwy/foreach_target.h>

#include "raycaster/core/vector/lanes.hpp"

#include <algorithm>
#include <bit>
#include <climits>
#include <cmath>

HWY_BEFORE_NAMESPACE();
namespace zv {
namespace HWY_NAMESPACE {

#if HWY_TARGET != HWY_SCALAR

template <class Number> struct Range {
    Number least, most;

    Range(const Number* numbers, int count) {
        auto [low, high] = std::minmax_element(numbers, numbers + count);
        least = *low;
        most = *high;
    }
};

// The points of the level under a run of columns. The floor's row below the horizon and the ceiling's as far above it
// are equally far, so they share them.
struct Run {
    static constexpr int length = 64;  // columns

    int begin, columns;
    Range<int> top, bottom;  // of what is between ceiling and floor
    Range<double> rayX, rayY;

    bool isOneCell = false;                 // that of the first column
    HWY_ALIGN int32_t cell[length];         // number in the grid, -1 beyond its edge
    HWY_ALIGN int32_t texel[length];        // in textures that are alike
    HWY_ALIGN double u[length], v[length];  // place in the cell, for textures that differ
    HWY_ALIGN uint32_t backdrop[length];

    Run(const WorldStrips& world, int x)
        : begin(x),
          columns(std::min(length, world.view.width - x)),
          top(&world.top[static_cast<size_t>(x)], columns),
          bottom(&world.bottom[static_cast<size_t>(x)], columns),
          rayX(&world.rayX[static_cast<size_t>(x)], columns),
          rayY(&world.rayY[static_cast<size_t>(x)], columns) {}

    void findOneCell(const WorldStrips& world, double dist) {
        const Grid& grid = world.scene.grid;
        int x = cellOf(rayX, dist, world.view.pos.x, grid.width);
        int y = x < 0 ? -1 : cellOf(rayY, dist, world.view.pos.y, grid.height);
        isOneCell = y >= 0;
        if (isOneCell) cell[0] = y * grid.width + x;
    }

    void loadBackdrop(const WorldStrips& world, int y) {
        const uint32_t* skyRow = world.backdrop.skyRow(y);
        if (skyRow && skyRow == loadedRow) return;  // a picture that is higher than the sky repeats its rows
        HWY_NAMESPACE::loadBackdrop(world, y, begin, columns, backdrop);
        loadedRow = skyRow;
    }

private:
    const uint32_t* loadedRow = nullptr;  // of the sky

    // Where all points of a row lie along one axis, as rounding keeps their order; -1 if that is not one cell.
    static int cellOf(const Range<double>& rays, double dist, double pos, int cells) {
        double first = std::floor(dist * rays.least + pos), last = std::floor(dist * rays.most + pos);
        return first == last && first >= 0 && first < cells ? static_cast<int>(first) : -1;
    }
};

// The textures by the numbers that cells hold.
struct FlatTextures {
    Image image[256];  // empty where the level does not hold it
    // Whether all have the same size, with sides that are powers of two: then whole numbers tell cell and texel.
    bool areAlike = true;
    int widthBits = 0, heightBits = 0;

    explicit FlatTextures(const Scene& scene) {
        const Image* first = nullptr;
        for (int i = 0; i < noTexture; i++) {
            const Image* texture = scene.texture(i);
            if (!texture) continue;
            image[i] = *texture;
            if (!first) first = texture;
            areAlike = areAlike && texture->width == first->width && texture->height == first->height;
        }
        if (!first) return;
        auto bits = [](int side) { return static_cast<int>(std::bit_width(static_cast<unsigned>(side))) - 1; };
        widthBits = bits(first->width);
        heightBits = bits(first->height);
        areAlike = areAlike && first->width == 1 << widthBits && first->height == 1 << heightBits &&
            scene.grid.width <= INT_MAX >> widthBits && scene.grid.height <= INT_MAX >> heightBits;
    }
};

// One coordinate of a vector of points, `scale` times.
struct Coordinate {
    hn::Vec<Doubles> low, high;

    HWY_INLINE Coordinate(double scale, double dist, const double* rays, double pos) {
        auto far = hn::Set(Doubles(), dist * scale), near = hn::Set(Doubles(), pos * scale);
        low = hn::Add(hn::Mul(far, hn::LoadU(Doubles(), rays)), near);
        high = hn::Add(hn::Mul(far, hn::LoadU(Doubles(), rays + hn::Lanes(Doubles()))), near);
    }
    // Towards zero, and downwards.
    HWY_INLINE hn::Vec<Ints> whole() const { return wholeNumbers(low, high); }
    HWY_INLINE hn::Vec<Ints> floor() const { return wholeNumbers(hn::Floor(low), hn::Floor(high)); }
    HWY_INLINE void storeFractions(double* to) const {
        hn::Store(hn::Sub(low, hn::Floor(low)), Doubles(), to);
        hn::Store(hn::Sub(high, hn::Floor(high)), Doubles(), to + hn::Lanes(Doubles()));
    }
};

// `alike` multiplies by powers of two before everything else, which rounds nothing.
template <bool alike, bool isOneCell>
HWY_NOINLINE void findPoints(const WorldStrips& world, double rowDist, const FlatTextures& textures, Run& run) {
    const Ints ints;
    const Words words;
    const Grid& grid = world.scene.grid;
    const int widthBits = alike ? textures.widthBits : 0, heightBits = alike ? textures.heightBits : 0;
    const auto gridWidth = hn::Set(ints, grid.width);
    const auto width = hn::Set(words, static_cast<uint32_t>(grid.width << widthBits));
    const auto height = hn::Set(words, static_cast<uint32_t>(grid.height << heightBits));
    for (int i = 0; i < run.columns; i += static_cast<int>(hn::Lanes(ints))) {
        Coordinate pointX(1 << widthBits, rowDist, world.rayX.data() + run.begin + i, world.view.pos.x);
        Coordinate pointY(1 << heightBits, rowDist, world.rayY.data() + run.begin + i, world.view.pos.y);
        auto x = isOneCell ? pointX.whole() : pointX.floor(), y = isOneCell ? pointY.whole() : pointY.floor();
        if (!isOneCell) {
            auto inside = hn::And(hn::Lt(hn::BitCast(words, x), width), hn::Lt(hn::BitCast(words, y), height));
            auto cellX = hn::ShiftRightSame(x, widthBits), cellY = hn::ShiftRightSame(y, heightBits);
            auto cell = hn::Add(hn::Mul(cellY, gridWidth), cellX);
            hn::Store(hn::IfThenElse(hn::RebindMask(ints, inside), cell, hn::Set(ints, -1)), ints, run.cell + i);
        }
        if (alike) {
            auto texX = hn::And(x, hn::Set(ints, (1 << widthBits) - 1));
            auto texY = hn::And(y, hn::Set(ints, (1 << heightBits) - 1));
            hn::Store(hn::Or(hn::ShiftLeftSame(texY, widthBits), texX), ints, run.texel + i);
        } else {
            pointX.storeFractions(run.u + i);
            pointY.storeFractions(run.v + i);
        }
    }
}

// One plane in one row: where it shows, and how its texels become pixels.
struct PlaneRow {
    CellByte plane;
    int y;
    const int* edge;  // the region's, a number a column
    bool solidFog;
    uint32_t fogColor;
    Blend ground, fog;

    HWY_INLINE hn::Vec<Words> shaded(hn::Vec<Words> texels) const {
        if (solidFog) return hn::Set(Words(), fogColor);
        Spread spread(texels);
        if (plane == cellFloor) ground(spread);
        fog(spread);
        return spread.joined();
    }
    bool shows(const Run& run) const { return plane == cellFloor ? y >= run.bottom.least : y < run.top.most; }
    bool fills(const Run& run) const {
        return run.columns == Run::length && (plane == cellFloor ? y >= run.bottom.most : y < run.top.least);
    }
    // Those of a vector of columns, from the run's `i`-th on, in which the plane shows.
    HWY_INLINE hn::Mask<Ints> region(const Run& run, int i) const {
        auto edges = hn::LoadU(Ints(), edge + run.begin + i), row = hn::Set(Ints(), y);
        return plane == cellFloor ? hn::Not(hn::Gt(edges, row)) : hn::Gt(edges, row);
    }
};

// The texels of a run, not yet shaded. They are loaded one by one: a vector's gather is hardly faster, and slow on many
// machines.
struct Texels {
    HWY_ALIGN uint32_t word[Run::length];
    HWY_ALIGN int32_t isHere[Run::length];  // -1, or 0 where the backdrop shows
    bool areHere = true;

    HWY_NOINLINE void load(
        const Grid& grid, const PlaneRow& row, const FlatTextures& textures, const Run& run, bool isFull) {
        const Ints ints;
        const int lanes = static_cast<int>(hn::Lanes(ints));
        Cell cell = cellAt(grid, row, textures, run.cell[0]);
        if (run.isOneCell && isFull) return loadCell(cell, row, textures, run, 0, Run::length);
        for (int i = 0; i < run.columns; i += lanes) {
            if (!isFull && hn::AllFalse(ints, row.region(run, i))) continue;
            if (run.isOneCell || hn::AllTrue(ints, hn::Eq(hn::Load(ints, run.cell + i), hn::Set(ints, run.cell[i])))) {
                if (!run.isOneCell) cell = cellAt(grid, row, textures, run.cell[i]);
                loadCell(cell, row, textures, run, i, i + lanes);
                continue;
            }
            for (int from = i, to = i; from < i + lanes; from = to) {
                while (to < i + lanes && run.cell[to] == run.cell[from]) to++;
                loadCell(cellAt(grid, row, textures, run.cell[from]), row, textures, run, from, to);
            }
        }
    }

private:
    struct Cell {
        const Image* texture;
        bool isHere;
    };

    static HWY_INLINE Cell cellAt(const Grid& grid, const PlaneRow& row, const FlatTextures& textures, int cell) {
        int number = cell < 0 ? noTexture : grid.cells[static_cast<ptrdiff_t>(cell) * cellBytes + row.plane];
        const Image& texture = textures.image[number];
        // Solid fog hides textures that the level does not hold like all others.
        return {&texture, row.solidFog ? number != noTexture : !texture.empty()};
    }
    // Columns that show the same cell.
    HWY_INLINE void loadCell(
        const Cell& cell, const PlaneRow& row, const FlatTextures& textures, const Run& run, int from, int to) {
        for (int i = from; i < to; i++) isHere[i] = cell.isHere ? -1 : 0;
        areHere = areHere && cell.isHere;
        if (!cell.isHere || row.solidFog) return;
        const Image& texture = *cell.texture;
        if (textures.areAlike) {
            for (int i = from; i < to; i++) word[i] = texture.pixels[run.texel[i]];
        } else {
            for (int i = from; i < to; i++)
                word[i] =
                    texture.at(static_cast<int>(run.u[i] * texture.width), static_cast<int>(run.v[i] * texture.height));
        }
    }
};

// `full`: the plane fills the row of the run.
template <bool full>
HWY_NOINLINE void drawRun(const WorldStrips& world, const PlaneRow& row, const FlatTextures& textures, Run& run) {
    const Ints ints;
    const Words words;
    const int lanes = static_cast<int>(hn::Lanes(ints));
    Texels texels;
    texels.load(world.scene.grid, row, textures, run, full);
    if (!texels.areHere) run.loadBackdrop(world, row.y);
    uint32_t* out = world.target.row(row.y) + run.begin;
    for (int i = 0; i < run.columns; i += lanes) {
        auto region = row.region(run, i);
        if (!full && hn::AllFalse(ints, region)) continue;
        auto pixels = hn::Load(words, texels.word + i);
        if (texels.areHere) {
            pixels = row.shaded(pixels);
        } else {
            auto isHere = hn::RebindMask(words, hn::MaskFromVec(hn::Load(ints, texels.isHere + i)));
            auto backdrop = hn::Load(words, run.backdrop + i);
            pixels = hn::AllFalse(words, isHere) ? backdrop : hn::IfThenElse(isHere, row.shaded(pixels), backdrop);
        }
        if (full) hn::StoreU(pixels, words, out + i);
        else store(pixels, hn::RebindMask(words, region), out, i, run.columns - i);
    }
}

void drawFlats(const WorldStrips& world, int from, int to) {
    const View& view = world.view;
    const Fog& fog = world.scene.fog;
    const FlatTextures textures(world.scene);
    std::vector<Run> runs;
    for (int x = 0; x < view.width; x += Run::length) runs.emplace_back(world, x);
    for (int away = from; away < to; away++) {
        int below = view.horizon + away, above = view.horizon - away;
        bool hasFloor = below >= 0 && below < view.height, hasCeiling = above >= 0 && above < view.height;
        if (!hasFloor && !hasCeiling) continue;
        double rowDist = view.scale() / away;
        int fogAmount = fog.at(rowDist);
        PlaneRow floor{cellFloor, below, world.bottom.data(), fogAmount >= 255, *fog.color,
            Blend(*fog.groundColor, fog.groundAt(rowDist)), Blend(*fog.color, fogAmount)};
        PlaneRow ceiling{cellCeiling, above, world.top.data(), fogAmount >= 255, *fog.color, floor.ground, floor.fog};
        for (Run& run : runs) {
            bool seesFloor = hasFloor && floor.shows(run), seesCeiling = hasCeiling && ceiling.shows(run);
            if (!seesFloor && !seesCeiling) continue;
            run.findOneCell(world, rowDist);
            auto find = textures.areAlike ? (run.isOneCell ? findPoints<true, true> : findPoints<true, false>)
                                          : (run.isOneCell ? findPoints<false, true> : findPoints<false, false>);
            find(world, rowDist, textures, run);
            if (seesFloor) (floor.fills(run) ? drawRun<true> : drawRun<false>)(world, floor, textures, run);
            if (seesCeiling) (ceiling.fills(run) ? drawRun<true> : drawRun<false>)(world, ceiling, textures, run);
        }
    }
}

#else
void drawFlats(const WorldStrips&, int, int) {}
#endif

}  // namespace HWY_NAMESPACE
}  // namespace zv
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace zv {

HWY_EXPORT(drawFlats);

void drawFlatsByVectors(const WorldStrips& world, int from, int to) {
    HWY_DYNAMIC_DISPATCH(drawFlats)(world, from, to);
}

}  // namespace zv
#endif
