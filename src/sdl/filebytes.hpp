// Numbers in the bytes of a file; beyond its end there is nothing but zeros.
#pragma once
#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace zv {

inline uint8_t byteAt(std::string_view file, size_t place) {
    return place < file.size() ? static_cast<uint8_t>(file[place]) : uint8_t{0};
}
inline int shortAt(std::string_view file, size_t place) { return byteAt(file, place) | byteAt(file, place + 1) << 8; }
inline int32_t numberAt(std::string_view file, size_t place, bool bigEndian) {
    uint32_t number = 0;
    for (size_t i = 0; i < 4; i++) number = number << 8 | byteAt(file, place + (bigEndian ? i : 3 - i));
    return static_cast<int32_t>(number);
}

// Whether a file can hold as many pixels as it claims, or claims few: SDL_image takes, and writes to, the memory for
// all of them first.
inline bool canHold(std::string_view file, int64_t width, int64_t height, uint64_t pixelsPerByte) {
    constexpr uint64_t few = 1 << 24, most = INT_MAX / 4;
    auto pixels = static_cast<uint64_t>(std::abs(width * height));
    return pixels <= std::min(most, std::max(few, file.size() * pixelsPerByte));
}

}  // namespace zv
