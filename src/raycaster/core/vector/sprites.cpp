#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "raycaster/core/vector/sprites.cpp"
#include <hwy/foreach_target.h>

#include "core/blend.hpp"
#include "raycaster/core/vector/lanes.hpp"

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

// mix() and addLight() with the alpha of each texel as weight.
template <bool additive> HWY_INLINE hn::Vec<Words> laidOver(hn::Vec<Words> base, const Spread& texels) {
    const Words words;
    const Pairs pairs;
    auto alphaGreen = hn::BitCast(words, texels.alphaGreen);
    auto alpha = hn::ShiftRight<16>(alphaGreen), both = hn::Or(alpha, hn::ShiftLeft<16>(alpha));
    auto green = hn::BitCast(pairs, hn::And(alphaGreen, hn::Set(words, 0xFFFFu)));
    auto weights = hn::BitCast(pairs, both);
    Spread result(base);
    if (additive) {
        result.redBlue = hn::ShiftRight<8>(hn::Mul(texels.redBlue, weights));
        result.alphaGreen = hn::ShiftRight<8>(hn::Mul(green, weights));
        return hn::BitCast(words, hn::SaturatedAdd(hn::BitCast(Bytes(), base), hn::BitCast(Bytes(), result.joined())));
    }
    auto keep = hn::Sub(hn::Set(words, 255u), alpha);
    auto keepAlpha = hn::BitCast(pairs, hn::Or(keep, hn::Set(words, uint32_t{256} << 16)));
    auto keepBoth = hn::BitCast(pairs, hn::Or(keep, hn::ShiftLeft<16>(keep)));
    result.redBlue = hn::ShiftRight<8>(hn::Add(hn::Mul(texels.redBlue, weights), hn::Mul(result.redBlue, keepBoth)));
    result.alphaGreen = hn::ShiftRight<8>(hn::Add(hn::Mul(green, weights), hn::Mul(result.alphaGreen, keepAlpha)));
    return result.joined();
}

template <bool additive> HWY_NOINLINE void drawRun(
    const uint32_t* texels, int count, uint32_t* out, bool shadeless, const Blend& ground, const Blend& fog) {
    const Words words;
    const int lanes = static_cast<int>(hn::Lanes(words));
    for (int i = 0; i < count; i += lanes) {
        Spread spread(hn::LoadU(words, texels + i));
        if (!shadeless) {
            ground(spread);
            fog(spread);
        }
        int left = count - i;
        store(
            laidOver<additive>(load(out, i, left), spread), hn::FirstN(words, static_cast<size_t>(left)), out, i, left);
    }
}

void drawSprite(const SpriteFrame& frame, const Fog& fog, const SpriteArea& area, const std::vector<RayHit>& rayHits,
    double depth, const MutableImage& target) {
    SpriteColumns visible(frame, area.across, rayHits, depth);
    if (visible.runs.empty()) return;
    std::vector<uint32_t> texels(visible.sheetX.size() + WorldStrips::padding);
    const Blend towardsFog(*fog.color, frame.fog);
    double texY = area.down.texel;
    int loadedRow = -1;  // neighbouring rows of a near sprite show the same row of the sheet
    for (int y = area.down.from; y < area.down.to; y++, texY += area.down.step) {
        const Blend towardsGround(
            *fog.groundColor, groundFogAt(frame.groundFog, y, area.down.from, area.down.to - area.down.from));
        int sheetY = sheetRow(frame, texY);
        const uint32_t* sheet = frame.sheet.row(sheetY);
        uint32_t* row = target.row(y);
        for (const VisibleRun& run : visible.runs) {
            size_t first = static_cast<size_t>(run.from - area.across.from),
                   count = static_cast<size_t>(run.to - run.from);
            if (sheetY != loadedRow)
                for (size_t i = first; i < first + count; i++) texels[i] = sheet[visible.sheetX[i]];
            (frame.additive ? drawRun<true> : drawRun<false>)(&texels[first], static_cast<int>(count), row + run.from,
                frame.shadeless, towardsGround, towardsFog);
        }
        loadedRow = sheetY;
    }
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
