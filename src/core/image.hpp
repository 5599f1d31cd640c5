// The pixels of a 32-bit image, for the plain core: pixel (x, y) is the word at y * width + x.
#pragma once
#include <cstddef>
#include <cstdint>

namespace zv {

struct Image {
    uint32_t* pixels = nullptr;
    int width = 0, height = 0;

    uint32_t& at(int x, int y) const {
#ifdef ZELVARINE_CHECKED
        if (x < 0 || y < 0 || x >= width || y >= height) __builtin_trap();
#endif
        return pixels[static_cast<ptrdiff_t>(y) * width + x];
    }
    bool empty() const { return width <= 0 || height <= 0; }
};

}  // namespace zv
