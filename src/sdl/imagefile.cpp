#include "sdl/imagefile.hpp"

#include "sdl/giffile.hpp"

#include <SDL_image.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <set>
#include <string>
#include <string_view>

namespace zv {

namespace {

struct MemoryRelease {
    void operator()(void* memory) const { SDL_free(memory); }
};

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

// Whether SDL_image comes to an end with the file, and with the memory that there is.
bool isSafe(std::string_view file) {
    auto startsWith = [&](std::string_view mark) { return file.substr(0, mark.size()) == mark; };
    if (startsWith("\x89PNG"))
        return hasEndMark(file) && canHold(file, numberAt(file, 16, true), numberAt(file, 20, true), 8256);
    if (startsWith("BM") && byteAt(file, 14) != 12)  // the oldest kind of header counts in 16 bits
        return canHold(file, numberAt(file, 18, false), numberAt(file, 22, false), 256);
    if (startsWith("qoif")) return canHold(file, numberAt(file, 4, true), numberAt(file, 8, true), 64);
    if (startsWith("GIF8")) return isSafeGif(file);
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
