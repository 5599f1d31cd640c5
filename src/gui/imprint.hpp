// Pictures of widgets that are drawn once and then repeated word by word.
#pragma once
#include "gui/canvas.hpp"

#include <array>
#include <cstring>
#include <functional>
#include <vector>

namespace zv {

// Everything that a picture depends on but for what is below it: with equal looks, a widget draws the same.
class Look {
public:
    void add(int64_t number) { numbers.at(count++) = number; }
    bool operator==(const Look&) const = default;

private:
    std::array<int64_t, 20> numbers{};
    size_t count = 0;
};

// What a picture did to the words that it was drawn on. Some of its pixels hide what was there, some leave it as it is.
// The rest mix with it, and what came of that is right only as long as the same words are there.
class Imprint {
public:
    // Draws a picture that keeps within the rectangle and the clip of the canvas: by `plainly`, which must not fail, or
    // without it what `plainly` would draw. Without a look it cannot be told whether that has been drawn before.
    template <class Draw>
    void draw(const Canvas& canvas, const SDL_Rect& rect, const std::optional<Look>& look, const Draw& plainly) {
        SDL_Rect open = canvas.open();
        bool isWhole = covers(open, rect) && int64_t{rect.w} * rect.h <= mostPixels;
        if (!look || (!isWhole && !isEmpty(intersection(open, rect)))) return plainly();
        if (!isWhole) return;
        if (known != look || rect.w != width || rect.h != height) {
            // What changes all the time is not worth more: it is learned when it comes again.
            *this = {};
            known = look;
            width = rect.w;
            height = rect.h;
            return plainly();
        }
        if (!isLearned) learn(canvas, rect, std::ref(plainly));
        else if (!repeat(canvas, rect)) renew(canvas, rect, std::ref(plainly));
    }

private:
    static constexpr int64_t mostPixels = 1 << 20;

    // Words in a row, and where the first of them is.
    struct Run {
        int x, y, length;
    };
    struct Part {
        std::vector<Run> runs;
        std::vector<uint32_t> words;
    };

    std::optional<Look> known;
    int width = 0, height = 0;
    bool isLearned = false;
    Part hiding, mixing;
    std::vector<uint32_t> below;  // what the mixing runs were drawn on

    void learn(const Canvas& canvas, const SDL_Rect& rect, const std::function<void()>& plainly);
    bool repeat(const Canvas& canvas, const SDL_Rect& rect) const;
    void renew(const Canvas& canvas, const SDL_Rect& rect, const std::function<void()>& plainly);
};

}  // namespace zv
