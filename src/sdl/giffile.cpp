#include "sdl/giffile.hpp"

#include <string>
#include <vector>

namespace zv {

namespace {

constexpr int maxCodes = 4096;
constexpr uint64_t pixelsPerByte = 16384;

// Codes of growing length, the lowest bits first.
class CodeReader {
public:
    explicit CodeReader(std::string_view data) : bytes(data) {}
    bool has(int bits) const { return place + static_cast<size_t>(bits) <= bytes.size() * 8; }
    int next(int bits) {
        int code = 0;
        for (int i = 0; i < bits; i++, place++) code |= (byteAt(bytes, place / 8) >> place % 8 & 1) << i;
        return code;
    }

private:
    std::string_view bytes;
    size_t place = 0;  // in bits
};

// Each code stands for a run of pixels: one of a color, or the run of an earlier code and one pixel more. Walks the
// codes until they have filled the picture.
bool areMeant(std::string_view data, int colorBits, int64_t pixels) {
    const int clear = 1 << colorBits, end = clear + 1;
    std::vector<int> length(maxCodes, 1);
    CodeReader codes(data);
    int bits = colorBits + 1, known = end + 1, previous = clear;
    bool atStart = true;
    while (pixels > 0 && codes.has(bits)) {
        int code = codes.next(bits);
        if (code == clear && (atStart || previous != clear)) {
            bits = colorBits + 1;
            known = end + 1;
            previous = clear;
            continue;
        }
        if (code == end && previous != clear) break;
        atStart = false;
        if (code > known || (previous == clear && code >= clear)) return false;
        size_t last = static_cast<size_t>(previous);
        if (previous != clear && known < maxCodes) {
            length[static_cast<size_t>(known++)] = length[last] + 1;
            if (known == 1 << bits && known < maxCodes) bits++;
        }
        pixels -= length[static_cast<size_t>(code)];
        previous = code;
    }
    return true;
}

}  // namespace

bool isSafeGif(std::string_view gif) {
    size_t place = 13;
    auto skipPalette = [&](uint8_t flags) { place += flags & 0x80 ? size_t{6} << (flags & 7) : 0; };
    // Blocks begin with their length; an empty one is the last.
    auto readBlocks = [&] {
        std::string data;
        while (uint8_t size = byteAt(gif, place++)) {
            data += gif.substr(std::min(place, gif.size()), size);
            place += size;
        }
        return data;
    };
    if (!canHold(gif, shortAt(gif, 6), shortAt(gif, 8), pixelsPerByte)) return false;
    skipPalette(byteAt(gif, 10));
    while (place < gif.size()) {
        char kind = gif[place++];
        if (kind == '!') {
            place++;
            readBlocks();
        } else if (kind == ',') {
            int64_t width = shortAt(gif, place + 4), height = shortAt(gif, place + 6);
            uint8_t flags = byteAt(gif, place + 8);
            place += 9;
            skipPalette(flags);
            int colorBits = byteAt(gif, place++);
            if (!canHold(gif, width, height, pixelsPerByte) || colorBits < 1 || colorBits > 11) return false;
            if (!areMeant(readBlocks(), colorBits, width * height)) return false;
        }
    }
    return true;
}

}  // namespace zv
