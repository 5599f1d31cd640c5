// The memory of a grid, together with its size: neither changes without the other.
#pragma once
#include "core/grid.hpp"

#include <cstdlib>
#include <memory>
#include <new>
#include <utility>

namespace zv {

class CellBuffer {
public:
    CellBuffer() = default;
    // All cells empty. The system gives the pages when they are first written, so that a file that
    // claims a huge level costs nothing.
    CellBuffer(int width, int height)
        : bytes(static_cast<size_t>(int64_t{width} * height * cellBytes)),
          memory(static_cast<uint8_t*>(std::calloc(bytes ? bytes : 1, 1))),
          gridWidth(width),
          gridHeight(height) {
        if (!memory) throw std::bad_alloc();
    }

    Grid grid() const { return {memory.get(), gridWidth, gridHeight}; }
    uint8_t* data() const { return memory.get(); }
    size_t size() const { return bytes; }

private:
    struct Release {
        void operator()(uint8_t* p) const { std::free(p); }
    };
    size_t bytes = 0;
    std::unique_ptr<uint8_t, Release> memory;
    int gridWidth = 0, gridHeight = 0;
};

}  // namespace zv
