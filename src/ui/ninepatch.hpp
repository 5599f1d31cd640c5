// A picture of three by three pieces that fills a rectangle of any size: the corners keep their
// size, the edges stretch in one direction, the centre in both.
#pragma once
#include "gui/canvas.hpp"

#include <array>

namespace zv {

struct NinePatch {
    int x, y;                    // top left corner of the picture in the tileset
    std::array<int, 3> columns;  // widths
    std::array<int, 3> rows;     // heights
};

// Draws the nine cells row by row. A rectangle smaller than the corners makes them overlap.
inline void blitNinePatch(
    const Canvas& canvas, const Ref<Texture>& tileset, const NinePatch& patch, const SDL_Rect& rect) {
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
    auto columns = split(patch.x, patch.columns, rect.x, rect.w), rows = split(patch.y, patch.rows, rect.y, rect.h);
    for (const Piece& down : rows)
        for (const Piece& across : columns) {
            SDL_Rect source{across.source, down.source, across.sourceLength, down.sourceLength};
            SDL_Rect place{across.place, down.place, across.length, down.length};
            bool isCorner = &across != &columns[1] && &down != &rows[1];
            if (isCorner) canvas.blit(tileset, source, place.x, place.y);
            else canvas.blitScaled(tileset, source, place);
        }
}

}  // namespace zv
