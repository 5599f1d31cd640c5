// Rectangles of widgets: signed 32-bit pixels, computed in 64 bits, so that no size or position a
// script may set runs over.
#pragma once
#include <SDL_rect.h>

#include <algorithm>
#include <climits>
#include <cstdint>

namespace zv {

inline int saturate(int64_t v) { return static_cast<int>(std::clamp<int64_t>(v, INT_MIN, INT_MAX)); }

// The common part of two rectangles; its size is 0 or negative when they do not meet.
inline SDL_Rect intersection(const SDL_Rect& a, const SDL_Rect& b) {
    int left = std::max(a.x, b.x), top = std::max(a.y, b.y);
    int64_t right = std::min(int64_t{a.x} + a.w, int64_t{b.x} + b.w);
    int64_t bottom = std::min(int64_t{a.y} + a.h, int64_t{b.y} + b.h);
    return {left, top, saturate(right - left), saturate(bottom - top)};
}

// Whether a point is inside a rectangle. The edges are outside.
inline bool contains(const SDL_Rect& r, int x, int y) {
    return x > r.x && x < int64_t{r.x} + r.w && y > r.y && y < int64_t{r.y} + r.h;
}

// Whether all of a rectangle lies in another one.
inline bool covers(const SDL_Rect& whole, const SDL_Rect& part) {
    return part.x >= whole.x && part.y >= whole.y && int64_t{part.x} + part.w <= int64_t{whole.x} + whole.w &&
        int64_t{part.y} + part.h <= int64_t{whole.y} + whole.h;
}

// A margin or padding around a rectangle.
struct Edges {
    int top, right, bottom, left;
};
inline SDL_Rect inset(const SDL_Rect& r, const Edges& by) {
    return {saturate(int64_t{r.x} + by.left), saturate(int64_t{r.y} + by.top),
        saturate(int64_t{r.w} - by.left - by.right), saturate(int64_t{r.h} - by.top - by.bottom)};
}

}  // namespace zv
