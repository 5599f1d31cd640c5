#include "sdl/imagefile.hpp"

#include <SDL_image.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <set>
#include <string>
#include <string_view>

namespace zv {

namespace {

struct MemoryRelease {
    void operator()(void* memory) const { SDL_free(memory); }
};

uint8_t byteAt(std::string_view file, size_t place) {
    return place < file.size() ? static_cast<uint8_t>(file[place]) : uint8_t{0};
}
int32_t numberAt(std::string_view file, size_t place, bool bigEndian) {
    uint32_t number = 0;
    for (size_t i = 0; i < 4; i++) number = number << 8 | byteAt(file, place + (bigEndian ? i : 3 - i));
    return static_cast<int32_t>(number);
}
int shortAt(std::string_view file, size_t place) { return byteAt(file, place) | byteAt(file, place + 1) << 8; }

// Whether the chunks of a PNG file reach its end mark: libpng is not told that a file is over, and would go on
// for ever with what it read last.
bool hasEndMark(std::string_view png) {
    for (size_t place = 8; place + 12 <= png.size();) {
        if (png.substr(place + 4, 4) == "IEND") return true;
        place += size_t{static_cast<uint32_t>(numberAt(png, place, true))} + 12;
    }
    return false;
}

// What is between the next quotes; reads on from there. Empty also at the end of the file.
std::string_view nextString(std::string_view& xpm) {
    size_t start = xpm.find('"');
    size_t end = start == xpm.npos ? xpm.npos : xpm.find('"', start + 1);
    std::string_view found = end == xpm.npos ? std::string_view() : xpm.substr(start + 1, end - start - 1);
    xpm = end == xpm.npos ? std::string_view() : xpm.substr(end + 1);
    return found;
}

// Whether all pixels of an XPM file are there and have a color that the file names: SDL_image relies on both.
bool hasAllColors(std::string_view xpm) {
    int width, height, colors, letters;  // so many for each pixel
    std::string sizes(nextString(xpm));
    if (std::sscanf(sizes.c_str(), "%d %d %d %d", &width, &height, &colors, &letters) != 4) return false;
    if (width <= 0 || height <= 0 || colors <= 0 || letters <= 0) return false;
    size_t step = static_cast<size_t>(letters), row = static_cast<size_t>(width) * step;
    std::set<std::string_view> known;
    for (int i = 0; i < colors; i++) {
        std::string_view color = nextString(xpm);
        if (color.size() <= step) return false;
        known.insert(color.substr(0, step));
    }
    for (int y = 0; y < height; y++) {
        size_t start = xpm.find('"');
        if (start == xpm.npos || xpm.size() - start - 1 < row) return false;
        for (size_t x = 0; x < row; x += step)
            if (!known.count(xpm.substr(start + 1 + x, step))) return false;
        xpm.remove_prefix(std::min(start + 1 + row + 3, xpm.size()));  // SDL_image takes `",` and the line's end along
    }
    return true;
}

// Whether a file can hold as many pixels as it claims, or claims few: SDL_image takes, and writes to, the memory for
// all of them first.
bool canHold(std::string_view file, int64_t width, int64_t height, uint64_t pixelsPerByte) {
    constexpr uint64_t few = 1 << 24, most = INT_MAX / 4;
    auto pixels = static_cast<uint64_t>(std::abs(width * height));
    return pixels <= std::min(most, std::max(few, file.size() * pixelsPerByte));
}

// Whether a GIF file can hold its first picture, which comes behind extensions: each is a mark, a kind and blocks that
// begin with their length, up to an empty one.
bool canHoldFirstPicture(std::string_view gif) {
    size_t place = 13;
    if (byteAt(gif, 10) & 0x80) place += size_t{6} << (byteAt(gif, 10) & 7);  // the palette
    for (; place < gif.size() && gif[place] != ','; place++) {
        if (gif[place] != '!') continue;
        for (place += 2; byteAt(gif, place); place += byteAt(gif, place) + size_t{1}) {}
    }
    return canHold(gif, shortAt(gif, 6), shortAt(gif, 8), 16384) &&
        canHold(gif, shortAt(gif, place + 5), shortAt(gif, place + 7), 16384);
}

// Whether SDL_image comes to an end with the file, and with the memory that there is.
bool isSafe(std::string_view file) {
    auto startsWith = [&](std::string_view mark) { return file.substr(0, mark.size()) == mark; };
    if (startsWith("\x89PNG"))
        return hasEndMark(file) && canHold(file, numberAt(file, 16, true), numberAt(file, 20, true), 8256);
    if (startsWith("BM") && byteAt(file, 14) != 12)  // the oldest kind of header counts in 16 bits
        return canHold(file, numberAt(file, 18, false), numberAt(file, 22, false), 256);
    if (startsWith("qoif")) return canHold(file, numberAt(file, 4, true), numberAt(file, 8, true), 64);
    if (startsWith("GIF8")) return canHoldFirstPicture(file);
    if (startsWith("/* XPM */")) return hasAllColors(file);
    return true;
}

}  // namespace

SurfaceHandle loadImage(const char* filename) {
    size_t size = 0;
    std::unique_ptr<void, MemoryRelease> file(SDL_LoadFile(filename, &size));
    if (!file || size > INT_MAX || !isSafe({static_cast<const char*>(file.get()), size})) return nullptr;
    const char* extension = SDL_strrchr(filename, '.');  // TGA files have no mark of their own
    SDL_RWops* content = SDL_RWFromConstMem(file.get(), static_cast<int>(size));
    return SurfaceHandle(content ? IMG_LoadTyped_RW(content, 1, extension ? extension + 1 : nullptr) : nullptr);
}

}  // namespace zv
