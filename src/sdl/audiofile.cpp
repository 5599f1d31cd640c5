#include "sdl/audiofile.hpp"

#include <SDL.h>

#include <memory>

namespace zv {

namespace {

struct FileRelease {
    void operator()(SDL_RWops* file) const { SDL_RWclose(file); }
};

constexpr Uint32 tag(const char (&t)[5]) {
    return static_cast<Uint32>(t[0]) << 24 | static_cast<Uint32>(t[1]) << 16 | static_cast<Uint32>(t[2]) << 8 |
        static_cast<Uint32>(t[3]);
}

// SDL_mixer counts the channels in a byte and divides by them.
bool hasChannels(Uint16 channels) { return (channels & 0xFF) != 0; }

// Samples per second. Of fewer, a short file becomes hours of sound, and memory and time are used up over converting
// it.
bool isBearable(Uint32 rate) { return rate >= 100; }

// A list of loops that the chunk has no room for is read all the same.
bool holdsItsLoops(SDL_RWops* file, Uint32 length) {
    constexpr Uint32 head = 36, loop = 24;
    if (length < head) return false;
    SDL_RWseek(file, 28, RW_SEEK_CUR);
    return SDL_ReadLE32(file) <= (length - head) / loop;
}

bool isPlayableWav(SDL_RWops* file, Uint32 chunk, Uint32 length) {
    if (chunk == tag("smpl")) return holdsItsLoops(file, length);
    if (chunk != tag("fmt ")) return true;
    SDL_ReadLE16(file);  // the encoding
    return hasChannels(SDL_ReadLE16(file)) && isBearable(SDL_ReadLE32(file));
}

// The rate of an AIFF file: a number of 80 bits, cut to an integer as SDL_mixer does it.
Uint32 readRate(SDL_RWops* file) {
    Uint32 exponent = SDL_ReadBE16(file), digits = SDL_ReadBE32(file);
    if (exponent < 0x4000) return 1;
    return exponent > 0x401C ? SDL_MAX_UINT32 : digits >> 1 >> (0x401D - exponent);
}

bool isPlayableAiff(SDL_RWops* file, Uint32 chunk) {
    if (chunk != tag("COMM")) return true;
    bool channels = hasChannels(SDL_ReadBE16(file));
    SDL_RWseek(file, 6, RW_SEEK_CUR);  // the number of samples, the size of each
    return channels && isBearable(readRate(file));
}

}  // namespace

bool isPlayable(const char* filename) {
    std::unique_ptr<SDL_RWops, FileRelease> file(SDL_RWFromFile(filename, "rb"));
    if (!file) return false;
    Uint32 kind = SDL_ReadBE32(file.get());
    bool isWav = kind == tag("RIFF") || kind == tag("WAVE");
    if (!isWav && kind != tag("FORM")) return true;
    // Both kinds are chunks of a tag, a length and as many bytes, filled up to an even number.
    Sint64 size = SDL_RWsize(file.get());
    for (Sint64 place = 12; place < size;) {
        SDL_RWseek(file.get(), place, RW_SEEK_SET);
        Uint32 chunk = SDL_ReadBE32(file.get());
        Uint32 length = isWav ? SDL_ReadLE32(file.get()) : SDL_ReadBE32(file.get());
        place += 8 + Sint64{length} + length % 2;
        if (!(isWav ? isPlayableWav(file.get(), chunk, length) : isPlayableAiff(file.get(), chunk))) return false;
    }
    return true;
}

}  // namespace zv
