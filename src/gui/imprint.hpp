// Pictures of widgets that are drawn once and then repeated word by word.
#pragma once
#include "binding/items.hpp"
#include "gui/canvas.hpp"

#include <array>
#include <functional>
#include <vector>

namespace zv {

// Everything that a picture depends on but for what is below it: with equal looks, a widget draws the same. A look is
// plain while no script has a say in it, nor could tell how often it was asked for.
class Look {
public:
    void add(int64_t number) { numbers.at(count++) = number; }
    void add(const Ref<Texture>& picture);
    // A number of the theme, or several, which the widget will read.
    int64_t addNumber(PyObject* table, Name& key);
    template <class... Keys> void addNumbers(PyObject* table, Keys&... keys) { (addNumber(table, keys), ...); }

    bool isPlain = true;
    bool operator==(const Look&) const = default;

private:
    std::array<int64_t, 20> numbers{};
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
        bool isSeen = !isEmpty(seen), isCut = seen.w != rect.w || seen.h != rect.h;
        if (!look.isPlain || (isSeen && isCut) || int64_t{seen.w} * seen.h > mostPixels) plainly();
        else if (!isSeen) forget();
        else if (known != look || size.x != rect.w || size.y != rect.h) {
            plainly();
            meet(look, {rect.w, rect.h});
        } else if (!isLearned) learn(canvas, rect, std::ref(plainly));
        else if (!repeat(canvas, rect)) renew(canvas, rect, std::ref(plainly));
    }
    void forget() {
        if (known) *this = {};
    }

private:
    static constexpr int64_t mostPixels = 1 << 20;

    // Words in a row, and where in the rectangle they are.
    struct Run {
        int x, y, length;
    };
    struct Part {
        std::vector<Run> runs;
        std::vector<uint32_t> words;
    };

    std::optional<Look> known;
    SDL_Point size{};
    bool isLearned = false;
    Part hiding, mixing;
    std::vector<uint32_t> below;  // what the mixing part was drawn on

    // A picture that changes all the time is not worth more: it is learned when it comes again.
    void meet(const Look& look, SDL_Point newSize);
    void learn(const Canvas& canvas, const SDL_Rect& rect, const std::function<void()>& plainly);
    bool repeat(const Canvas& canvas, const SDL_Rect& rect) const;
    void renew(const Canvas& canvas, const SDL_Rect& rect, const std::function<void()>& plainly);

    static std::vector<uint32_t> read(const MutableImage& image, const SDL_Rect& rect, const std::vector<Run>& runs);
    static void write(const MutableImage& image, const SDL_Rect& rect, const Part& part);
};

}  // namespace zv
