// What drawing is compared with: the plainest ways to write a whole frame. Called by yardsticks.py.
#include <SDL.h>

#include <algorithm>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

static constexpr uint32_t word = 0xFF00B464;

// Past the caches, where compiler and machine can.
static void writeStreaming(uint32_t* pixels, size_t count) {
    size_t i = 0;
#if defined(__SSE2__)
    __m128i words = _mm_set1_epi32(static_cast<int>(word));  // SDL aligns pixels for vector units
    for (; i + 4 <= count; i += 4) _mm_stream_si128(reinterpret_cast<__m128i*>(pixels + i), words);
    _mm_sfence();
#elif defined(__has_builtin)
#if __has_builtin(__builtin_nontemporal_store)
    for (; i < count; i++) __builtin_nontemporal_store(word, pixels + i);
#endif
#endif
    std::fill(pixels + i, pixels + count, word);
}

extern "C" {

SDL_Surface* newFrame(int width, int height) {
    return SDL_CreateRGBSurfaceWithFormat(0, width, height, 32, SDL_PIXELFORMAT_ARGB8888);
}

void write(SDL_Surface* frame) {
    size_t count = static_cast<size_t>(frame->w) * static_cast<size_t>(frame->h);
    writeStreaming(static_cast<uint32_t*>(frame->pixels), count);
}
void fill(SDL_Surface* frame) { SDL_FillRect(frame, nullptr, word); }

}  // extern "C"
