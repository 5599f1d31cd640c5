#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "raycaster/core/vector/flats.cpp"
#include <hwy/foreach_target.h>

#include "raycaster/core/vector/lanes.hpp"

HWY_BEFORE_NAMESPACE();
namespace zv {
namespace HWY_NAMESPACE {

#if HWY_TARGET != HWY_SCALAR

// The points of the level under a run of columns. The floor's row below the horizon and the ceiling's as far above it
// are equally far, so they share them.
struct Run {
    static constexpr int length = 128;  // columns

    int begin, columns;
    HWY_ALIGN int32_t cell[length];         // number in the grid, -1 beyond its edge
    HWY_ALIGN int32_t offset[length];       // of the texel, in a texture of the size that all have
    HWY_ALIGN double u[length], v[length];  // place in the cell, where textures differ in size
    bool inOneCell[length];                 // for the first column of each vector
};

struct TextureSize {
    int width, height;
};

// The textures by the numbers that cells hold.
struct FlatTextures {
    Image image[256];        // empty where the level does not hold it
    TextureSize size{0, 0};  // of all of them; 0 where they differ

    explicit FlatTextures(const Scene& scene) {
        bool first = true;
        for (int i = 0; i < noTexture; i++) {
            const Image* texture = scene.texture(i);
            if (!texture) continue;
            image[i] = *texture;
            if (first) size = {texture->width, texture->height};
            else if (size.width != texture->width || size.height != texture->height) size = {0, 0};
            first = false;
        }
    }
};

// Whether the floor shows in any column of the run in the row `below`, or the ceiling in the row `above`.
static bool isSeen(const WorldStrips& world, const Run& run, int below, int above) {
    const Ints ints;
    auto seen = hn::Zero(ints);
    for (int i = 0; i < run.columns; i += static_cast<int>(hn::Lanes(ints))) {
        auto bottom = hn::LoadU(ints, world.bottom.data() + run.begin + i);
        auto top = hn::LoadU(ints, world.top.data() + run.begin + i);
        seen = hn::Or(seen, hn::VecFromMask(ints, hn::Lt(bottom, hn::Set(ints, below + 1))));
        seen = hn::Or(seen, hn::VecFromMask(ints, hn::Lt(hn::Set(ints, above), top)));
    }
    return !hn::AllTrue(ints, hn::Eq(seen, hn::Zero(ints)));
}

HWY_NOINLINE void findPoints(const WorldStrips& world, double rowDist, TextureSize size, Run& run) {
    const Ints ints;
    const Words words;
    const Doubles doubles;
    const int lanes = static_cast<int>(hn::Lanes(ints)), half = lanes / 2;
    const auto dist = hn::Set(doubles, rowDist);
    const auto posX = hn::Set(doubles, world.view.pos.x), posY = hn::Set(doubles, world.view.pos.y);
    const auto gridWidth = hn::Set(ints, world.scene.grid.width), gridHeight = hn::Set(ints, world.scene.grid.height);
    const auto texWidth = hn::Set(doubles, size.width), texHeight = hn::Set(doubles, size.height);
    for (int i = 0; i < run.columns; i += lanes) {
        const double *rayX = world.rayX.data() + run.begin + i, *rayY = world.rayY.data() + run.begin + i;
        auto x0 = hn::Add(hn::Mul(dist, hn::LoadU(doubles, rayX)), posX);
        auto y0 = hn::Add(hn::Mul(dist, hn::LoadU(doubles, rayY)), posY);
        auto x1 = hn::Add(hn::Mul(dist, hn::LoadU(doubles, rayX + half)), posX);
        auto y1 = hn::Add(hn::Mul(dist, hn::LoadU(doubles, rayY + half)), posY);
        auto cellX0 = hn::Floor(x0), cellY0 = hn::Floor(y0), cellX1 = hn::Floor(x1), cellY1 = hn::Floor(y1);
        auto u0 = hn::Sub(x0, cellX0), v0 = hn::Sub(y0, cellY0), u1 = hn::Sub(x1, cellX1), v1 = hn::Sub(y1, cellY1);
        auto cellX = wholeNumbers(cellX0, cellX1), cellY = wholeNumbers(cellY0, cellY1);
        auto inside = hn::And(hn::Lt(hn::BitCast(words, cellX), hn::BitCast(words, gridWidth)),
            hn::Lt(hn::BitCast(words, cellY), hn::BitCast(words, gridHeight)));
        auto cell =
            hn::IfThenElse(hn::RebindMask(ints, inside), hn::Add(hn::Mul(cellY, gridWidth), cellX), hn::Set(ints, -1));
        hn::Store(cell, ints, run.cell + i);
        run.inOneCell[i] = hn::AllTrue(ints, hn::Eq(cell, hn::Set(ints, hn::GetLane(cell))));
        if (size.width > 0) {
            auto texX = wholeNumbers(hn::Mul(u0, texWidth), hn::Mul(u1, texWidth));
            auto texY = wholeNumbers(hn::Mul(v0, texHeight), hn::Mul(v1, texHeight));
            hn::Store(hn::Add(hn::Mul(texY, hn::Set(ints, size.width)), texX), ints, run.offset + i);
        } else {
            hn::Store(u0, doubles, run.u + i);
            hn::Store(u1, doubles, run.u + i + half);
            hn::Store(v0, doubles, run.v + i);
            hn::Store(v1, doubles, run.v + i + half);
        }
    }
}

// One plane in one row: where it shows, and how its texels become pixels.
struct PlaneRow {
    CellByte plane;
    int y;
    const int* edge;  // the region's, a number a column
    bool solidFog;
    Blend ground, fog;

    // The columns from the run's `i`-th on in which the plane's region shows.
    HWY_INLINE hn::Mask<Ints> region(const Run& run, int i) const {
        auto edges = hn::LoadU(Ints(), edge + run.begin + i), row = hn::Set(Ints(), y);
        auto shows = plane == cellFloor ? hn::Not(hn::Gt(edges, row)) : hn::Gt(edges, row);
        return hn::And(shows, hn::FirstN(Ints(), static_cast<size_t>(run.columns - i)));
    }
};

// The words of a run before they are shaded: texels, and the backdrop between them. They are loaded one by one: a
// vector's gather is no faster, and slow on many machines.
struct RunWords {
    HWY_ALIGN uint32_t word[Run::length];
    HWY_ALIGN int32_t isTexel[Run::length];  // -1 or 0

    HWY_NOINLINE void load(
        const WorldStrips& world, const PlaneRow& row, const FlatTextures& textures, const Run& run) {
        const int lanes = static_cast<int>(hn::Lanes(Ints()));
        auto numberAt = [&](int i) {
            int cell = run.cell[i];
            return cell < 0 ? noTexture : world.scene.grid.cells[static_cast<ptrdiff_t>(cell) * cellBytes + row.plane];
        };
        // Solid fog hides textures that the level does not hold like all others.
        auto shows = [&](int number) { return row.solidFog ? number != noTexture : !textures.image[number].empty(); };
        for (int i = 0; i < run.columns; i += lanes) {
            if (hn::AllFalse(Ints(), row.region(run, i))) continue;
            if (run.inOneCell[i]) {
                int number = numberAt(i);
                hn::Store(hn::Set(Ints(), shows(number) ? -1 : 0), Ints(), isTexel + i);
                if (!shows(number)) loadBackdrop(world, row.y, run.begin + i, word + i);
                else if (!row.solidFog) loadTexels(textures, number, run, i, i + lanes);
                continue;
            }
            loadBackdrop(world, row.y, run.begin + i, word + i);
            for (int k = i; k < i + lanes; k++) {
                int number = numberAt(k);
                isTexel[k] = shows(number) ? -1 : 0;
                if (isTexel[k] && !row.solidFog) loadTexels(textures, number, run, k, k + 1);
            }
        }
    }

private:
    HWY_INLINE void loadTexels(const FlatTextures& textures, int number, const Run& run, int from, int to) {
        const Image& texture = textures.image[number];
        if (textures.size.width > 0) {
            for (int k = from; k < to; k++) word[k] = texture.pixels[run.offset[k]];
        } else {
            for (int k = from; k < to; k++)
                word[k] =
                    texture.at(static_cast<int>(run.u[k] * texture.width), static_cast<int>(run.v[k] * texture.height));
        }
    }
};

HWY_NOINLINE void drawRun(const WorldStrips& world, const PlaneRow& row, const FlatTextures& textures, const Run& run) {
    const Ints ints;
    const Words words;
    const int lanes = static_cast<int>(hn::Lanes(ints));
    RunWords loaded;
    loaded.load(world, row, textures, run);
    uint32_t* out = world.target.row(row.y);
    const auto solid = hn::Set(words, *world.scene.fog.color);
    for (int i = 0; i < run.columns; i += lanes) {
        auto region = row.region(run, i);
        if (hn::AllFalse(ints, region)) continue;
        auto raw = hn::Load(words, loaded.word + i), pixels = solid;
        if (!row.solidFog) {
            Spread spread(raw);
            if (row.plane == cellFloor) row.ground(spread);
            row.fog(spread);
            pixels = spread.joined();
        }
        auto isTexel = hn::RebindMask(words, hn::MaskFromVec(hn::Load(ints, loaded.isTexel + i)));
        store(hn::IfThenElse(isTexel, pixels, raw), hn::RebindMask(words, region), out, run.begin + i, run.columns - i);
    }
}

void drawFlats(const WorldStrips& world, int from, int to) {
    const View& view = world.view;
    const Fog& fog = world.scene.fog;
    const FlatTextures textures(world.scene);
    Run run;
    for (int away = from; away < to; away++) {
        int below = view.horizon + away, above = view.horizon - away;
        bool hasFloor = below >= 0 && below < view.height, hasCeiling = above >= 0 && above < view.height;
        if (!hasFloor && !hasCeiling) continue;
        double rowDist = view.scale() / away;
        int fogAmount = fog.at(rowDist);
        PlaneRow floor{cellFloor, below, world.bottom.data(), fogAmount >= 255,
            Blend(*fog.groundColor, fog.groundAt(rowDist)), Blend(*fog.color, fogAmount)};
        PlaneRow ceiling{cellCeiling, above, world.top.data(), fogAmount >= 255, floor.ground, floor.fog};
        for (run.begin = 0; run.begin < view.width; run.begin += Run::length) {
            run.columns = std::min(Run::length, view.width - run.begin);
            if (!isSeen(world, run, hasFloor ? below : -1, hasCeiling ? above : view.height)) continue;
            findPoints(world, rowDist, textures.size, run);
            if (hasFloor) drawRun(world, floor, textures, run);
            if (hasCeiling) drawRun(world, ceiling, textures, run);
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
