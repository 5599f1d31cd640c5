// Blending in lanes of 16 bits: blue and red of a pixel in one vector, green and alpha in the other. Included once
// for each vector target.
#if defined(ZELVARINE_LANES) == defined(HWY_TARGET_TOGGLE)
#ifdef ZELVARINE_LANES
#undef ZELVARINE_LANES
#else
#define ZELVARINE_LANES
#endif

#include <hwy/highway.h>

#include "raycaster/core/vector/strips.hpp"

HWY_BEFORE_NAMESPACE();
namespace zv {
namespace HWY_NAMESPACE {

#if HWY_TARGET != HWY_SCALAR

namespace hn = hwy::HWY_NAMESPACE;

using Ints = hn::ScalableTag<int32_t>;  // one lane a pixel
using Words = hn::RebindToUnsigned<Ints>;
using Floats = hn::RebindToFloat<Ints>;
using Doubles = hn::Repartition<double, Ints>;  // half as many lanes
using HalfInts = hn::Rebind<int32_t, Doubles>;
using HalfFloats = hn::Rebind<float, Doubles>;
using Pairs = hn::Repartition<uint16_t, Words>;
using Bytes = hn::Repartition<uint8_t, Words>;

inline constexpr int maxLanes = WorldStrips::padding;

// A vector of pixels, spread to lanes of 16 bits.
struct Spread {
    hn::Vec<Pairs> redBlue, alphaGreen;

    explicit HWY_INLINE Spread(hn::Vec<Words> pixels)
        : redBlue(hn::And(hn::BitCast(Pairs(), pixels), hn::Set(Pairs(), uint16_t{0xFF}))),
          alphaGreen(hn::ShiftRight<8>(hn::BitCast(Pairs(), pixels))) {}
    HWY_INLINE hn::Vec<Words> joined() const {
        return hn::BitCast(Words(), hn::Or(redBlue, hn::ShiftLeft<8>(alphaGreen)));
    }
};

// mix() towards one color with one weight: (channel * keep + add) >> 8. Alpha stays, as it is multiplied by 256.
struct Blend {
    hn::Vec<Pairs> keep, add, keepAlpha, addAlpha;

    Blend(uint32_t color, int weight) : Blend(color, hn::Set(Words(), static_cast<uint32_t>(weight))) {}
    // With a weight from 0 to 255 for each pixel.
    HWY_INLINE Blend(uint32_t color, hn::Vec<Words> weight) {
        auto k = hn::Sub(hn::Set(Words(), 255u), weight);
        auto weights = hn::BitCast(Pairs(), hn::Or(weight, hn::ShiftLeft<16>(weight)));
        keep = hn::BitCast(Pairs(), hn::Or(k, hn::ShiftLeft<16>(k)));
        add = hn::Mul(weights, hn::BitCast(Pairs(), hn::Set(Words(), color & 0xFF00FF)));
        keepAlpha = hn::BitCast(Pairs(), hn::Or(k, hn::Set(Words(), uint32_t{256} << 16)));
        addAlpha = hn::BitCast(Pairs(), hn::Mul(weight, hn::Set(Words(), color >> 8 & 255)));
    }
    HWY_INLINE void operator()(Spread& pixels) const {
        pixels.redBlue = hn::ShiftRight<8>(hn::Add(hn::Mul(pixels.redBlue, keep), add));
        pixels.alphaGreen = hn::ShiftRight<8>(hn::Add(hn::Mul(pixels.alphaGreen, keepAlpha), addAlpha));
    }
};

HWY_INLINE hn::Vec<Words> addLight(hn::Vec<Words> base, hn::Vec<Words> color, hn::Vec<Pairs> weights) {
    Spread light(hn::And(color, hn::Set(Words(), 0xFFFFFFu)));
    light.redBlue = hn::ShiftRight<8>(hn::Mul(light.redBlue, weights));
    light.alphaGreen = hn::ShiftRight<8>(hn::Mul(light.alphaGreen, weights));
    return hn::BitCast(Words(), hn::SaturatedAdd(hn::BitCast(Bytes(), base), hn::BitCast(Bytes(), light.joined())));
}

// Two vectors of doubles as whole numbers, towards zero, in one vector.
HWY_INLINE hn::Vec<Ints> wholeNumbers(hn::Vec<Doubles> low, hn::Vec<Doubles> high) {
    return hn::Combine(Ints(), hn::DemoteTo(HalfInts(), high), hn::DemoteTo(HalfInts(), low));
}

// The pixels of a row from the `x`-th on, of which the first `count` are there.
HWY_INLINE hn::Vec<Words> load(const uint32_t* row, int x, int count) {
    if (count >= static_cast<int>(hn::Lanes(Words()))) return hn::LoadU(Words(), row + x);
    HWY_ALIGN uint32_t some[maxLanes] = {};
    std::copy_n(row + x, count, some);
    return hn::Load(Words(), some);
}

HWY_INLINE void store(hn::Vec<Words> pixels, hn::Mask<Words> region, uint32_t* row, int x, int count) {
    const Words words;
    const int lanes = static_cast<int>(hn::Lanes(words));
    if (count >= lanes && hn::AllTrue(words, region)) return hn::StoreU(pixels, words, row + x);
    if (count >= lanes) return hn::BlendedStore(pixels, region, words, row + x);
    HWY_ALIGN uint32_t some[maxLanes], wanted[maxLanes];
    hn::Store(pixels, words, some);
    hn::Store(hn::VecFromMask(words, region), words, wanted);
    for (int i = 0; i < count; i++)
        if (wanted[i]) row[x + i] = some[i];
}

// The backdrop of a vector of columns from `x` on in a row.
HWY_INLINE void loadBackdrop(const WorldStrips& world, int y, int x, uint32_t* words) {
    const Backdrop& backdrop = world.backdrop;
    const int lanes = static_cast<int>(hn::Lanes(Words()));
    if (backdrop.kind == Backdrop::sky) {
        const uint32_t* row = backdrop.panorama.rows[static_cast<size_t>(y)];
        const int* columns = &world.skyColumns[static_cast<size_t>(x)];
        for (int i = 0; i < lanes; i++) words[i] = row[columns[i]];
    } else if (backdrop.kind == Backdrop::plain) {
        hn::Store(hn::Set(Words(), backdrop.color), Words(), words);
    } else {
        const uint32_t* row = world.target.row(y);
        std::copy_n(row + x, std::min(lanes, world.view.width - x), words);
    }
}

#endif

}  // namespace HWY_NAMESPACE
}  // namespace zv
HWY_AFTER_NAMESPACE();

#endif
