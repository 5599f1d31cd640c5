#include "gui/imprint.hpp"

#include <cstring>

namespace zv {

void Look::add(const Ref<Texture>& picture) {
    int64_t version = picture ? picture->version() : 0;
    isPlain = isPlain && version != 0;
    add(version);
}

int64_t Look::addNumber(PyObject* table, Name& key) {
    PyObject* number = plainItem(table, key);
    int overflow = 0;
    long value = number && PyLong_CheckExact(number) ? PyLong_AsLongAndOverflow(number, &overflow) : LONG_MAX;
    isPlain = isPlain && overflow == 0 && value >= INT_MIN && value <= INT_MAX;
    add(value);
    return value;
}

std::vector<uint32_t> Imprint::read(const MutableImage& image, const SDL_Rect& rect, const std::vector<Run>& runs) {
    std::vector<uint32_t> words;
    for (const Run& run : runs) {
        const uint32_t* first = image.row(rect.y + run.y) + rect.x + run.x;
        words.insert(words.end(), first, first + run.length);
    }
    return words;
}

void Imprint::write(const MutableImage& image, const SDL_Rect& rect, const Part& part) {
    const uint32_t* word = part.words.data();
    for (const Run& run : part.runs) {
        std::copy_n(word, run.length, image.row(rect.y + run.y) + rect.x + run.x);
        word += run.length;
    }
}

void Imprint::meet(const Look& look, SDL_Point newSize) {
    *this = {};
    known = look;
    size = newSize;
}

// Draws where it belongs, then on black and on white: what comes out the same on both hides what is below, what stays
// black and white leaves it.
void Imprint::learn(const Canvas& canvas, const SDL_Rect& rect, const std::function<void()>& plainly) {
    constexpr uint32_t black = 0, white = 0xFFFFFFFF;
    MutableImage image = canvas.pixels();
    Part all;
    for (int y = 0; y < rect.h; y++) all.runs.push_back({0, y, rect.w});
    std::vector<uint32_t> before = read(image, rect, all.runs);
    auto drawn = [&] {
        plainly();
        return read(image, rect, all.runs);
    };
    auto drawnOn = [&](uint32_t word) {
        for (int y = 0; y < rect.h; y++) std::fill_n(image.row(rect.y + y) + rect.x, rect.w, word);
        return drawn();
    };
    all.words = drawn();
    std::vector<uint32_t> onBlack = drawnOn(black), onWhite = drawnOn(white);
    write(image, rect, all);

    size_t i = 0;
    for (int y = 0; y < rect.h; y++) {
        Part* last = nullptr;
        for (int x = 0; x < rect.w; x++, i++) {
            bool hides = onBlack[i] == onWhite[i], leaves = onBlack[i] == black && onWhite[i] == white;
            Part* part = leaves ? nullptr : hides ? &hiding : &mixing;
            if (part && part != last) part->runs.push_back({x, y, 0});
            last = part;
            if (!part) continue;
            part->runs.back().length++;
            part->words.push_back(all.words[i]);
            if (part == &mixing) below.push_back(before[i]);
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
    write(image, rect, mixing);
    write(image, rect, hiding);
    return true;
}

// Draws on what is below now, and keeps what comes of it.
void Imprint::renew(const Canvas& canvas, const SDL_Rect& rect, const std::function<void()>& plainly) {
    MutableImage image = canvas.pixels();
    std::vector<uint32_t> ground = read(image, rect, mixing.runs);
    plainly();
    mixing.words = read(image, rect, mixing.runs);
    below = std::move(ground);
}

}  // namespace zv
