// What SDL_mixer takes for granted of a music file.
#pragma once

namespace zv {

// Whether SDL_mixer may have a look at the file: a WAV or AIFF header can bring it to divide by zero or to read beyond
// its memory. Files of other kinds are left to their decoders. False for a file that cannot be opened.
bool isPlayable(const char* filename);

}  // namespace zv
