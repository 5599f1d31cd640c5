// What SDL_mixer takes for granted of a sound or music file.
#pragma once

namespace zv {

// Whether SDL_mixer may have a look at the file: a WAV or AIFF header can bring it to divide by zero, to read beyond
// its memory, or to convert for minutes. Files of other kinds are left to their decoders. False for a file that cannot
// be opened.
bool isPlayable(const char* filename);

}  // namespace zv
