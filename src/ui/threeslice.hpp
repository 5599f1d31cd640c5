// A picture of three pieces in a row that fills a bar of any length: a cap at both ends, the middle
// piece tiled between them, the last tile squeezed into what is left.
#pragma once
#include "gui/geometry.hpp"
#include "sdl/blit.hpp"

namespace zv {

struct ThreeSlice {
    int x, y;                 // top left corner of the picture in the tileset
    int first, middle, last;  // lengths of the pieces; the middle one is not 0
    int thickness;
    bool vertical = false;  // the pieces lie one below the other
};

struct SlicePiece {
    int source, sourceLength, place, length;  // along the bar
};

// How many whole tiles the middle of a bar takes.
inline int64_t tileCount(const ThreeSlice& bar, int length) {
    return truncated((static_cast<double>(length) - bar.first - bar.last) / bar.middle);
}

// Calls draw(piece) for the pieces of a bar of that length from `place` on, in drawing order. Tiles
// that end at or before `low`, or begin at or behind `high`, are left out.
template <class Draw>
void eachSlicePiece(const ThreeSlice& bar, int start, int place, int length, int low, int high, Draw&& draw) {
    int middleSource = saturate(int64_t{start} + bar.first);
    int64_t tiled = int64_t{length} - bar.first - bar.last, begin = int64_t{place} + bar.first;
    draw(SlicePiece{start, bar.first, place, bar.first});
    int64_t count = tileCount(bar, length), rest = tiled - count * bar.middle;
    if (bar.middle > 0) {
        int64_t from = std::max<int64_t>(0, (low - begin) / bar.middle),
                to = std::min(count, (high - begin) / bar.middle + 1);
        for (int64_t k = from; k < to; k++)
            draw(SlicePiece{middleSource, bar.middle, saturate(begin + k * bar.middle), bar.middle});
    }
    if (rest > 0) draw(SlicePiece{middleSource, bar.middle, saturate(begin + count * bar.middle), saturate(rest)});
    draw(SlicePiece{saturate(int64_t{middleSource} + bar.middle), bar.last, saturate(begin + tiled), bar.last});
}

inline void blitThreeSlice(SDL_Surface* source, const ThreeSlice& bar, const Canvas& canvas, int x, int y, int length) {
    auto turned = [&](int along, int across, int alongSize, int acrossSize) {
        return bar.vertical ? SDL_Rect{across, along, acrossSize, alongSize}
                            : SDL_Rect{along, across, alongSize, acrossSize};
    };
    int start = bar.vertical ? bar.y : bar.x, startAcross = bar.vertical ? bar.x : bar.y;
    int place = bar.vertical ? y : x, placeAcross = bar.vertical ? x : y;
    SDL_Rect shown = intersection(canvas.clip, unclipped(canvas.target).clip);
    int low = bar.vertical ? shown.y : shown.x, high = saturate(int64_t{low} + (bar.vertical ? shown.h : shown.w));
    eachSlicePiece(bar, start, place, length, low, high, [&](const SlicePiece& p) {
        blitScaled(source, turned(p.source, startAcross, p.sourceLength, bar.thickness), canvas,
            turned(p.place, placeAcross, p.length, bar.thickness));
    });
}

}  // namespace zv
