// Integer blending of 32-bit pixels 0xAARRGGBB. The alpha byte of the pixel below always stays.
#pragma once
#include <algorithm>
#include <cstdint>

namespace zv {

// (color * a + base * (255 - a)) >> 8 per channel, for a from 0 to 255. The weights add up to 255 and the
// shift divides by 256: even the weight 0 darkens by one, and the look of all walls and flats contains that.
// Red and blue share one multiplication; no channel can reach its neighbour.
inline uint32_t mix(uint32_t base, uint32_t color, int weight) {
    uint32_t a = static_cast<uint32_t>(weight), b = 255 - a;
    uint32_t redBlue = ((color & 0xFF00FF) * a + (base & 0xFF00FF) * b) >> 8 & 0xFF00FF;
    uint32_t green = ((color & 0x00FF00) * a + (base & 0x00FF00) * b) >> 8 & 0x00FF00;
    return (base & 0xFF000000) | redBlue | green;
}

// Light on top of the base: base + color * a / 256 per channel, saturating.
inline uint32_t addLight(uint32_t base, uint32_t color, int weight) {
    uint32_t a = static_cast<uint32_t>(weight), result = base & 0xFF000000;
    for (int shift = 0; shift <= 16; shift += 8) {
        uint32_t channel = (((base >> shift & 0xFF) << 8) + (color >> shift & 0xFF) * a) >> 8;
        result |= std::min<uint32_t>(channel, 255) << shift;
    }
    return result;
}

}  // namespace zv
