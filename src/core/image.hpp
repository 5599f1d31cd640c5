// The pixels of a 32-bit image, for the plain core: pixel (x, y) is the word at y * width + x.
#pragma once
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace zv {

template <class Word> struct Pixels {
    Word* pixels = nullptr;
    int width = 0, height = 0;

    Word* row(int y) const {
#ifdef ZELVARINE_CHECKED
        if (y < 0 || y >= height) std::abort();
#endif
        return pixels + static_cast<ptrdiff_t>(y) * width;
    }
    Word& at(int x, int y) const {
#ifdef ZELVARINE_CHECKED
        if (x < 0 || x >= width) std::abort();
#endif
        return row(y)[x];
    }
    bool empty() const { return width <= 0 || height <= 0; }

    operator Pixels<const Word>() const { return {pixels, width, height}; }
};

// What is read, and what is drawn on. A mutable image can be read, too.
using Image = Pixels<const uint32_t>;
using MutableImage = Pixels<uint32_t>;

}  // namespace zv
