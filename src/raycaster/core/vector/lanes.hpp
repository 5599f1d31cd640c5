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
    HWY_INLINE hn::Vec<Words> alpha() const { return hn::ShiftRight<16>(hn::BitCast(Words(), alphaGreen)); }
    HWY_INLINE hn::Vec<Pairs> green() const {
        return hn::And(alphaGreen, hn::BitCast(Pairs(), hn::Set(Words(), 0xFFFFu)));
    }
};

// A number of 16 bits in both lanes of each pixel.
HWY_INLINE hn::Vec<Pairs> twice(hn::Vec<Words> number) {
    return hn::BitCast(Pairs(), hn::Or(number, hn::ShiftLeft<16>(number)));
}

// mix() with weights from 0 to 255: (channel * keep + add) >> 8. Alpha stays, as it is multiplied by 256.
struct Blend {
    hn::Vec<Pairs> keep, add, keepAlpha, addAlpha;

    Blend(uint32_t color, int weight) : Blend(color, hn::Set(Words(), static_cast<uint32_t>(weight))) {}
    // Towards one color, with a weight for each pixel.
    HWY_INLINE Blend(uint32_t color, hn::Vec<Words> weight) : Blend(Spread(hn::Set(Words(), color)), weight) {}
    // Towards other pixels, with their alpha as weight.
    explicit HWY_INLINE Blend(const Spread& colors) : Blend(colors, colors.alpha()) {}
    HWY_INLINE void operator()(Spread& pixels) const {
        pixels.redBlue = hn::ShiftRight<8>(hn::Add(hn::Mul(pixels.redBlue, keep), add));
        pixels.alphaGreen = hn::ShiftRight<8>(hn::Add(hn::Mul(pixels.alphaGreen, keepAlpha), addAlpha));
    }

private:
    HWY_INLINE Blend(const Spread& colors, hn::Vec<Words> weight) {
        auto rest = hn::Sub(hn::Set(Words(), 255u), weight);
        keep = twice(rest);
        add = hn::Mul(twice(weight), colors.redBlue);
        keepAlpha = hn::BitCast(Pairs(), hn::Or(rest, hn::Set(Words(), uint32_t{256} << 16)));
        addAlpha = hn::Mul(twice(weight), colors.green());
    }
};

// What addLight() adds to each channel, with a weight from 0 to 255 for each pixel; and the sum.
HWY_INLINE hn::Vec<Words> addedLight(const Spread& colors, hn::Vec<Words> weight) {
    Spread added = colors;
    added.redBlue = hn::ShiftRight<8>(hn::Mul(colors.redBlue, twice(weight)));
    added.alphaGreen = hn::ShiftRight<8>(hn::Mul(colors.green(), twice(weight)));
    return added.joined();
}
HWY_INLINE hn::Vec<Words> brightened(hn::Vec<Words> base, hn::Vec<Words> light) {
    return hn::BitCast(Words(), hn::SaturatedAdd(hn::BitCast(Bytes(), base), hn::BitCast(Bytes(), light)));
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

// The backdrop of a few columns from `x` on in a row.
HWY_INLINE void loadBackdrop(const WorldStrips& world, int y, int x, int count, uint32_t* words) {
    const Backdrop& backdrop = world.backdrop;
    count = std::min(count, world.view.width - x);
    if (const uint32_t* row = backdrop.skyRow(y)) {
        const int* columns = &backdrop.panorama.columns[static_cast<size_t>(x)];
        for (int i = 0; i < count; i++) words[i] = row[columns[i]];
    } else if (backdrop.kind == Backdrop::plain) {
        std::fill_n(words, count, backdrop.color);
    } else {
        std::copy_n(world.target.row(y) + x, count, words);
    }
}

#endif

}  // namespace HWY_NAMESPACE
}  // namespace zv
HWY_AFTER_NAMESPACE();

#endif
