// Sounds, music and their volumes: a thin layer over SDL_mixer.
#pragma once
#include "events.hpp"
#include "resources.hpp"

#include <SDL.h>
#include <SDL_mixer.h>

#include <memory>

namespace zv {

struct ChunkRelease {
    void operator()(Mix_Chunk* chunk) const { Mix_FreeChunk(chunk); }  // ends its playbacks
};
struct MusicRelease {
    void operator()(Mix_Music* music) const;
};

// Stands for a channel, not for a playback: once the channel plays another sound, it acts on that one.
struct SoundHandle : Object {
    int channel = -1;  // negative: none

    void stop();
    void pause();
    void resume();
    Ref<> isPlaying() const;
};

struct Sound : Resource {
    void init(Ref<> filepath);
    Ref<SoundHandle> play();
    Ref<SoundHandle> loop(int times);

private:
    std::unique_ptr<Mix_Chunk, ChunkRelease> chunk;
};

struct Music : Resource {
    void init(Ref<> filepath);
    void play(PyObject* pos);
    void loop(int times);
    void stop();
    void pause();
    void resume();
    void fadeOut(int milliseconds);
    void fadeIn(int milliseconds, double pos);
    void fadeInLoop(int milliseconds, int times, double pos);

private:
    std::unique_ptr<Mix_Music, MusicRelease> music;

    void awaitFadeOutOfOther() const;
    bool isReady();
};

struct MusicStoppedEvent : Event {};

// Starts the count of music endings. To be called before the audio device is opened.
void hookMusicFinished();
// Takes one ending off the count, if there is one; the audio thread adds them meanwhile.
bool takeMusicStopped();
Ref<> makeMusicStoppedEvent();

void declareSound(Module&);

}  // namespace zv
