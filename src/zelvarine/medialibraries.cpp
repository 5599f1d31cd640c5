#include "zelvarine/medialibraries.hpp"

#include "sdl/error.hpp"

#include <SDL.h>
#include <SDL_image.h>
#include <SDL_mixer.h>
#include <SDL_ttf.h>

namespace zv {

static bool openAudio() {
    constexpr int stereo = 2, chunkSize = 2048;
    return Mix_OpenAudio(44100, AUDIO_S16LSB, stereo, chunkSize) >= 0;
}

// On a machine without a sound device, sounds play into the void, unless the user has asked for a driver.
static bool openSilentAudio() { return !SDL_getenv("SDL_AUDIODRIVER") && SDL_AudioInit("dummy") == 0 && openAudio(); }

void startMediaLibraries() {
    if (SDL_Init(SDL_INIT_VIDEO | SDL_INIT_AUDIO) < 0) raiseSdl("Could not initialize the engine.");
    if (IMG_Init(IMG_INIT_PNG) != IMG_INIT_PNG) raiseSdl("Could not initialize the image loading subsystem.");
    if (!openAudio() && !openSilentAudio()) raiseSdl("Could not initialize sound subsystem.");
    if (TTF_Init() == -1) raiseSdl("Could not initialize font rendering subsystem.");
    if (SDL_InitSubSystem(SDL_INIT_JOYSTICK) < 0) raiseSdl("Could not initialize joystick subsystem.");
}

}  // namespace zv
