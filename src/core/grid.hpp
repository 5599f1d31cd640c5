// The cells of a level: seven bytes each, row after row.
#pragma once
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace zv {

enum Block : int {
    blockEmpty = 0,
    blockSquare = 1,
    // Named after the solid half, as rays see it; the last two are the other way round in Python's constants.
    blockNorthWest = 2,
    blockNorthEast = 3,
    blockSouthWest = 4,
    blockSouthEast = 5,
};

// Offsets in a cell.
enum CellByte : int {
    cellBlock = 0,
    cellFloor = 1,
    cellCeiling = 2,
    cellNorth = 3,
    cellEast = 4,
    cellSouth = 5,
    cellWest = 6
};

inline constexpr int cellBytes = 7;
inline constexpr int noTexture = 255;

struct Grid {
    uint8_t* cells = nullptr;
    int width = 0, height = 0;

    bool contains(int x, int y) const { return x >= 0 && y >= 0 && x < width && y < height; }
    uint8_t* cell(int x, int y) const {
#ifdef ZELVARINE_CHECKED
        if (!contains(x, y)) std::abort();
#endif
        return cells + (static_cast<ptrdiff_t>(y) * width + x) * cellBytes;
    }
};

}  // namespace zv
