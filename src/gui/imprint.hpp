// Pictures of widgets that are drawn once and then repeated word by word.
#pragma once
#include "binding/items.hpp"
#include "gui/canvas.hpp"

#include <array>
#include <functional>
#include <memory>
#include <vector>

namespace zv {

// Everything that a picture depends on but for what is below it: with equal looks, a widget draws the same. A look is
// plain while no script has a say in it, nor could tell how often it was asked for.
class Look {
public:
    void add(int64_t number) { numbers.at(count++) = number; }
    void add(const Ref<Texture>& picture);
    // What the widget will read from a table of the theme.
    int64_t addNumber(const Ref<>& table, Name& key);
    template <class... Keys> void addNumbers(const Ref<>& table, Keys&... keys) { (addNumber(table, keys), ...); }

    bool isPlain = true;
    bool operator==(const Look&) const = default;

private:
    std::array<int64_t, 16> numbers{};
    size_t count = 0;
};

// What a picture does to the words that it is drawn on. Some of its pixels hide what is there, some leave it as it is.
// The others mix with it, and what comes of that stays right as long as the same words are there.
class Imprint {
public:
    // Draws a picture that keeps within the rectangle and within the canvas: by `plainly`, or without it where that
    // would draw what it drew before. With a plain look, `plainly` must not fail.
    template <class Draw> void draw(const Canvas& canvas, const SDL_Rect& rect, const Look& look, const Draw& plainly) {
        SDL_Rect seen = intersection(canvas.open(), rect);
        bool isSeen = !isEmpty(seen), isWhole = seen.w == rect.w && seen.h == rect.h;
        if (!look.isPlain || (isSeen && !isWhole) || int64_t{seen.w} * seen.h > mostPixels) return plainly();
        std::unique_ptr<Picture> picture = std::move(known);
        if (!isSeen) return;
        if (!picture || picture->look != look || picture->width != rect.w || picture->height != rect.h) {
            plainly();
            // What changes all the time is not worth more: it is learned when it comes again.
            picture.reset(new Picture{look, rect.w, rect.h});
        } else if (!picture->isLearned) picture->learn(canvas.pixels(), rect, std::ref(plainly));
        else if (!picture->repeat(canvas.pixels(), rect)) picture->renew(canvas.pixels(), rect, std::ref(plainly));
        known = std::move(picture);
    }
    void forget() { known.reset(); }

private:
    static constexpr int64_t mostPixels = 1 << 20;  // of a picture that is worth its memory

    // Words in a row, and where in the rectangle they are.
    struct Run {
        int x, y, length;
    };
    struct Part {
        std::vector<Run> runs;
        std::vector<uint32_t> words;  // of one run after the other
    };
    struct Picture {
        Look look;
        int width, height;
        bool isLearned = false;
        Part hiding, mixing;
        std::vector<uint32_t> below;  // what the mixing part was drawn on

        void learn(const MutableImage& target, const SDL_Rect& rect, const std::function<void()>& plainly);
        bool repeat(const MutableImage& target, const SDL_Rect& rect) const;
        void renew(const MutableImage& target, const SDL_Rect& rect, const std::function<void()>& plainly);
    };
    std::unique_ptr<Picture> known;  // not while it is being drawn

    static std::vector<uint32_t> read(const MutableImage& target, const SDL_Rect& rect, const std::vector<Run>& runs);
    static void write(const MutableImage& target, const SDL_Rect& rect, const Part& part);
};

}  // namespace zv
