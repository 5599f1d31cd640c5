#include "gui/imprint.hpp"

#include <cstring>

namespace zv {

void Look::add(const Ref<Texture>& picture) {
    int64_t version = picture ? picture->version() : 0;
    isPlain = isPlain && version != 0;
    add(version);
}

int64_t Look::addNumber(const Ref<>& table, Name& key) {
    Ref<> number = plainItem(table, key);
    isPlain = isPlain && number && PyLong_CheckExact(number.raw());
    int overflow = 0;
    int64_t value = isPlain ? PyLong_AsLongLongAndOverflow(number.raw(), &overflow) : 0;
    isPlain = isPlain && overflow == 0 && value >= INT_MIN && value <= INT_MAX;
    add(value);
    return value;
}

std::vector<uint32_t> Imprint::read(const MutableImage& target, const SDL_Rect& rect, const std::vector<Run>& runs) {
    std::vector<uint32_t> words;
    for (const Run& run : runs) {
        const uint32_t* first = target.row(rect.y + run.y) + rect.x + run.x;
        words.insert(words.end(), first, first + run.length);
    }
    return words;
}

void Imprint::write(const MutableImage& target, const SDL_Rect& rect, const Part& part) {
    const uint32_t* word = part.words.data();
    for (const Run& run : part.runs) {
        std::copy_n(word, run.length, target.row(rect.y + run.y) + rect.x + run.x);
        word += run.length;
    }
}

// Draws where it belongs, then on black and on white: what comes out the same on both hides what is below, what stays
// black and white leaves it.
void Imprint::Picture::learn(const MutableImage& target, const SDL_Rect& rect, const std::function<void()>& plainly) {
    constexpr uint32_t black = 0, white = 0xFFFFFFFF;
    Part all;
    for (int y = 0; y < rect.h; y++) all.runs.push_back({0, y, rect.w});
    auto drawn = [&] {
        plainly();
        return read(target, rect, all.runs);
    };
    auto drawnOn = [&](uint32_t word) {
        for (int y = 0; y < rect.h; y++) std::fill_n(target.row(rect.y + y) + rect.x, rect.w, word);
        return drawn();
    };
    std::vector<uint32_t> before = read(target, rect, all.runs);
    all.words = drawn();
    std::vector<uint32_t> onBlack = drawnOn(black), onWhite = drawnOn(white);
    write(target, rect, all);

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

// False if other words than then are below.
bool Imprint::Picture::repeat(const MutableImage& target, const SDL_Rect& rect) const {
    const uint32_t* word = below.data();
    for (const Run& run : mixing.runs) {
        const uint32_t* there = target.row(rect.y + run.y) + rect.x + run.x;
        if (std::memcmp(there, word, static_cast<size_t>(run.length) * sizeof *word) != 0) return false;
        word += run.length;
    }
    write(target, rect, mixing);
    write(target, rect, hiding);
    return true;
}

// Draws on what is below now, and keeps what comes of it.
void Imprint::Picture::renew(const MutableImage& target, const SDL_Rect& rect, const std::function<void()>& plainly) {
    std::vector<uint32_t> ground = read(target, rect, mixing.runs);
    plainly();
    mixing.words = read(target, rect, mixing.runs);
    below = std::move(ground);
}

}  // namespace zv
