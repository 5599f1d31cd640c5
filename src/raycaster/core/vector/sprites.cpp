#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "raycaster/core/vector/sprites.cpp"
#include <hwy/foreach_target.h>

#include "raycaster/core/vector/lanes.hpp"

#include <hwy/aligned_allocator.h>
#include <hwy/cache_control.h>

HWY_BEFORE_NAMESPACE();
namespace zv {
namespace HWY_NAMESPACE {

#if HWY_TARGET != HWY_SCALAR

// Columns side by side that no wall hides.
struct VisibleRun {
    int from, to;
};

struct SpriteColumns {
    std::vector<VisibleRun> runs;
    std::vector<int> sheetX;  // for each column of the sprite's area

    SpriteColumns(const SpriteFrame& frame, const Extent& across, const std::vector<RayHit>& rayHits, double depth) {
        sheetX.reserve(static_cast<size_t>(std::max(across.to - across.from, 0)));
        double texX = across.texel;
        for (int x = across.from; x < across.to; x++, texX += across.step) {
            sheetX.push_back(sheetColumn(frame, texX));
            if (!showsSprite(rayHits[static_cast<size_t>(x)], depth)) continue;
            if (runs.empty() || runs.back().to != x) runs.push_back({x, x});
            runs.back().to = x + 1;
        }
    }
};

// A vector of texels, ready to be laid over the picture with the alpha of each as its weight: as mix() does it, and as
// addLight() does.
struct MixedTexels {
    Blend blend;

    explicit HWY_INLINE MixedTexels(const Spread& texels) : blend(texels) {}
    HWY_INLINE hn::Vec<Words> over(hn::Vec<Words> base) const {
        Spread pixels(base);
        blend(pixels);
        return pixels.joined();
    }
};

struct AddedTexels {
    hn::Vec<Words> light;

    explicit HWY_INLINE AddedTexels(const Spread& texels) : light(addedLight(texels, texels.alpha())) {}
    HWY_INLINE hn::Vec<Words> over(hn::Vec<Words> base) const { return brightened(base, light); }
};

// Draws a sprite row by row. Neighbouring rows of a near sprite show the same row of the sheet, mostly in the same fog.
template <class Texels> struct SpriteRows {
    const SpriteFrame& frame;
    const Fog& fog;
    const SpriteArea& area;
    const MutableImage& target;
    SpriteColumns visible;
    std::vector<uint32_t> texels;                // of the sheet's row, for each column of the area
    hwy::AlignedFreeUniquePtr<Texels[]> shaded;  // the same in fog, for each vector of each visible run

    void draw() {
        texels.resize(visible.sheetX.size() + WorldStrips::padding);
        // Each run may begin a vector that the one before has not filled.
        shaded = hwy::AllocateAligned<Texels>(texels.size() / hn::Lanes(Words()) + visible.runs.size());
        int loadedRow = -1, shadedFog = -1;
        double texY = area.down.texel;
        for (int y = area.down.from; y < area.down.to; y++, texY += area.down.step) {
            int row = sheetRow(frame, texY), rows = area.down.to - area.down.from;
            int groundFog = frame.shadeless ? 0 : groundFogAt(frame.groundFog, y, area.down.from, rows);
            if (row != loadedRow) load(frame.sheet.row(row));
            if (row != loadedRow || groundFog != shadedFog) shade(groundFog);
            loadedRow = row;
            shadedFog = groundFog;
            lay(target.row(y), target.row(std::min(y + 2, target.height - 1)));
        }
    }

private:
    size_t column(const VisibleRun& run) const { return static_cast<size_t>(run.from - area.across.from); }

    HWY_NOINLINE void load(const uint32_t* sheetRow) {
        for (const VisibleRun& run : visible.runs) {
            const size_t end = column(run) + static_cast<size_t>(run.to - run.from);
            for (size_t i = column(run); i < end; i++) texels[i] = sheetRow[visible.sheetX[i]];
        }
    }
    HWY_NOINLINE void shade(int groundFog) {
        const Words words;
        const Blend towardsGround(*fog.groundColor, groundFog), towardsFog(*fog.color, frame.fog);
        Texels* next = shaded.get();
        for (const VisibleRun& run : visible.runs) {
            const uint32_t* from = &texels[column(run)];
            for (int i = 0; i < run.to - run.from; i += static_cast<int>(hn::Lanes(words))) {
                Spread spread(hn::LoadU(words, from + i));
                if (!frame.shadeless) {
                    towardsGround(spread);
                    towardsFog(spread);
                }
                *next++ = Texels(spread);
            }
        }
    }
    // Meanwhile the pixels of a row that comes soon are on their way.
    HWY_NOINLINE void lay(uint32_t* row, const uint32_t* soon) const {
        const Words words;
        const Texels* next = shaded.get();
        for (const VisibleRun& run : visible.runs) {
            for (int x = run.from; x < run.to; x += static_cast<int>(hn::Lanes(words))) {
                hwy::Prefetch(soon + x);
                auto region = hn::FirstN(words, static_cast<size_t>(run.to - x));
                HWY_NAMESPACE::store(
                    next++->over(HWY_NAMESPACE::load(row, x, target.width - x)), region, row, x, target.width - x);
            }
        }
    }
};

void drawSprite(const SpriteFrame& frame, const Fog& fog, const SpriteArea& area, const std::vector<RayHit>& rayHits,
    double depth, const MutableImage& target) {
    SpriteColumns visible(frame, area.across, rayHits, depth);
    if (visible.runs.empty()) return;
    if (frame.additive) SpriteRows<AddedTexels>{frame, fog, area, target, std::move(visible), {}, {}}.draw();
    else SpriteRows<MixedTexels>{frame, fog, area, target, std::move(visible), {}, {}}.draw();
}

#else
void drawSprite(
    const SpriteFrame&, const Fog&, const SpriteArea&, const std::vector<RayHit>&, double, const MutableImage&) {}
#endif

}  // namespace HWY_NAMESPACE
}  // namespace zv
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace zv {

HWY_EXPORT(drawSprite);

void drawSpriteByVectors(const SpriteFrame& frame, const Fog& fog, const SpriteArea& area,
    const std::vector<RayHit>& rayHits, double depth, const MutableImage& target) {
    HWY_DYNAMIC_DISPATCH(drawSprite)(frame, fog, area, rayHits, depth, target);
}

}  // namespace zv
#endif
