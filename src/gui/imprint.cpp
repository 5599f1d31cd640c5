#include "gui/imprint.hpp"

namespace zv {

// The words of runs, one run after the other, as they stand on an image now.
template <class Runs> static std::vector<uint32_t> read(const MutableImage& image, const SDL_Rect& rect, const Runs& runs) {
    std::vector<uint32_t> words;
    for (const auto& run : runs) {
        const uint32_t* first = image.row(rect.y + run.y) + rect.x + run.x;
        words.insert(words.end(), first, first + run.length);
    }
    return words;
}
template <class Runs>
static void write(const MutableImage& image, const SDL_Rect& rect, const Runs& runs, const uint32_t* words) {
    for (const auto& run : runs) {
        std::copy_n(words, run.length, image.row(rect.y + run.y) + rect.x + run.x);
        words += run.length;
    }
}

// Draws on black and on white: what comes out the same hides what is below, what stays black and white leaves it.
void Imprint::learn(const Canvas& canvas, const SDL_Rect& rect, const std::function<void()>& plainly) {
    constexpr uint32_t black = 0, white = 0xFFFFFFFF;
    SDL_Rect open = canvas.open();
    MutableImage image = canvas.pixels();
    std::vector<Run> rows;
    for (int y = 0; y < rect.h; y++) rows.push_back({0, y, rect.w});
    std::vector<uint32_t> before = read(image, rect, rows), ground(before.size());
    auto drawnOn = [&](const std::vector<uint32_t>& words) {
        write(image, rect, rows, words.data());
        canvas.open(open);
        plainly();
        return read(image, rect, rows);
    };
    std::vector<uint32_t> onBlack = drawnOn(ground);
    std::fill(ground.begin(), ground.end(), white);
    std::vector<uint32_t> onWhite = drawnOn(ground), after = drawnOn(before);

    for (int y = 0; y < rect.h; y++) {
        Part* last = nullptr;
        for (int x = 0; x < rect.w; x++) {
            size_t i = static_cast<size_t>(y) * static_cast<size_t>(rect.w) + static_cast<size_t>(x);
            bool hides = onBlack[i] == onWhite[i], leaves = onBlack[i] == black && onWhite[i] == white;
            Part* part = leaves ? nullptr : hides ? &hiding : &mixing;
            if (part && part != last) part->runs.push_back({x, y, 0});
            if (part) {
                part->runs.back().length++;
                part->words.push_back(after[i]);
            }
            if (part == &mixing) below.push_back(before[i]);
            last = part;
        }
    }
    isLearned = true;
}

bool Imprint::repeat(const Canvas& canvas, const SDL_Rect& rect) const {
    MutableImage image = canvas.pixels();
    const uint32_t* word = below.data();
    for (const Run& run : mixing.runs) {
        const uint32_t* there = image.row(rect.y + run.y) + rect.x + run.x;
        if (std::memcmp(there, word, static_cast<size_t>(run.length) * sizeof *word) != 0) return false;
        word += run.length;
    }
    write(image, rect, mixing.runs, mixing.words.data());
    write(image, rect, hiding.runs, hiding.words.data());
    return true;
}

// Draws on what is below now, and keeps what comes of it.
void Imprint::renew(const Canvas& canvas, const SDL_Rect& rect, const std::function<void()>& plainly) {
    MutableImage image = canvas.pixels();
    below = read(image, rect, mixing.runs);
    plainly();
    mixing.words = read(image, rect, mixing.runs);
}

}  // namespace zv
