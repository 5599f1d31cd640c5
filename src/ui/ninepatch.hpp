// A picture of three by three pieces that fills a rectangle of any size: the corners keep their
// size, the edges stretch in one direction, the centre in both.
#pragma once
#include "gui/geometry.hpp"
#include "sdl/blit.hpp"

#include <array>

namespace zv {

struct NinePatch {
    int x, y;                    // top left corner of the picture in the tileset
    std::array<int, 3> columns;  // widths
    std::array<int, 3> rows;     // heights
};

struct NinePatchCell {
    SDL_Rect source, place;
};

// The nine cells row by row. A rectangle smaller than the corners makes them overlap.
inline std::array<NinePatchCell, 9> ninePatchCells(const NinePatch& patch, const SDL_Rect& rect) {
    struct Piece {
        int source, sourceLength, place, length;
    };
    auto split = [](int source, const std::array<int, 3>& lengths, int place, int length) {
        int64_t first = lengths[0], middle = lengths[1], last = lengths[2], stretched = length - first - last;
        return std::array<Piece, 3>{{
            {source, lengths[0], place, lengths[0]},
            {saturate(source + first), lengths[1], saturate(place + first), saturate(stretched)},
            {saturate(source + first + middle), lengths[2], saturate(place + first + stretched), lengths[2]},
        }};
    };
    auto across = split(patch.x, patch.columns, rect.x, rect.w), down = split(patch.y, patch.rows, rect.y, rect.h);
    std::array<NinePatchCell, 9> cells;
    for (size_t i = 0; i < cells.size(); i++) {
        const Piece &h = across[i % 3], &v = down[i / 3];
        cells[i] = {{h.source, v.source, h.sourceLength, v.sourceLength}, {h.place, v.place, h.length, v.length}};
    }
    return cells;
}

inline void blitNinePatch(SDL_Surface* source, const NinePatch& patch, const Canvas& canvas, const SDL_Rect& rect) {
    for (const NinePatchCell& cell : ninePatchCells(patch, rect)) blitScaled(source, cell.source, canvas, cell.place);
}

}  // namespace zv
