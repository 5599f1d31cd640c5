#include "resources/sound.hpp"

#include "sdl/audiofile.hpp"
#include "sdl/error.hpp"
#include "sdl/text.hpp"

#include <algorithm>
#include <atomic>

namespace zv {

// The audio thread runs without Python's lock: this number is all that it hands over.
static std::atomic<uint32_t> musicStoppedCount{0};
static_assert(std::atomic<uint32_t>::is_always_lock_free);

void hookMusicFinished() {
    Mix_HookMusicFinished([] { musicStoppedCount.fetch_add(1); });
}

bool takeMusicStopped() {
    if (musicStoppedCount.load() == 0) return false;
    musicStoppedCount.fetch_sub(1);  // takers hold Python's lock, so nobody else took it in between
    return true;
}

Ref<> makeMusicStoppedEvent() { return toPython(make<MusicStoppedEvent>()); }

void SoundHandle::stop() {
    if (channel >= 0) Mix_HaltChannel(channel);
}
void SoundHandle::pause() {
    if (channel >= 0) Mix_Pause(channel);
}
void SoundHandle::resume() {
    if (channel >= 0) Mix_Resume(channel);
}
Ref<> SoundHandle::isPlaying() const {
    if (channel < 0) return {};
    return toPython(Mix_Playing(channel));
}

void Sound::init(Ref<> filepath) {
    Utf8 path(filepath.raw());
    Resource::init(filepath);
    chunk.reset(isPlayable(path) ? Mix_LoadWAV_RW(SDL_RWFromFile(path, "rb"), 1) : nullptr);
    if (!chunk) raise(PyExc_IOError, "Unable to load sound file '%S'", filepath.raw());
}

static Ref<SoundHandle> handleOf(int channel) {
    if (channel < 0) raiseEngine("Unable to play the sound!");
    return make<SoundHandle>(channel);
}

// SDL_mixer divides by the number of channels, which may be 0.
static void setVolumeOfAllChannels(int volume) {
    if (Mix_AllocateChannels(-1) > 0) Mix_Volume(-1, volume);
}

Ref<SoundHandle> Sound::play() {
    int channel = Mix_PlayChannelTimed(-1, chunk.get(), 0, -1);
    setVolumeOfAllChannels(Convert<int>::from(Module::global("soundVolume"_name).raw()));
    return handleOf(channel);
}

Ref<SoundHandle> Sound::loop(int times) {
    int repeats = times > 0 ? times - 1 : -1;  // SDL_mixer counts those of a sound after the first playback
    return handleOf(Mix_PlayChannelTimed(-1, chunk.get(), repeats, -1));
}

static void setSoundVolume(int volume) {
    Module::setGlobal("soundVolume"_name, toPython(volume));
    setVolumeOfAllChannels(volume);
}
static Ref<> getSoundVolume() { return Module::global("soundVolume"_name); }
static void setMusicVolume(int volume) { Mix_VolumeMusic(volume); }
static int getMusicVolume() { return Mix_VolumeMusic(-1); }

static Mix_Music* lastStarted = nullptr;

void MusicRelease::operator()(Mix_Music* music) const {
    if (music == lastStarted) {
        // SDL_mixer would wait for the end of the fade-out, with all of Python waiting along.
        if (Mix_FadingMusic() == MIX_FADING_OUT) Mix_HaltMusic();
        lastStarted = nullptr;
    }
    Mix_FreeMusic(music);
}

void Music::init(Ref<> filepath) {
    Utf8 path(filepath.raw());
    Resource::init(filepath);
    music.reset(isPlayable(path) ? Mix_LoadMUS(path) : nullptr);
    if (!music) raise(PyExc_IOError, "Unable to load music file '%S'", filepath.raw());
}

// SDL_mixer starts a music after the fade-out of another one, and waits for that inside its call.
// Waiting here lets other threads and Ctrl-C through. A fade-out that stands still is cut off.
void Music::awaitFadeOutOfOther() const {
    while (music.get() != lastStarted && Mix_FadingMusic() == MIX_FADING_OUT) {
        if (Mix_PausedMusic() || !SDL_WasInit(SDL_INIT_AUDIO)) Mix_HaltMusic();
        Py_BEGIN_ALLOW_THREADS SDL_Delay(5);
        Py_END_ALLOW_THREADS checked(PyErr_CheckSignals());
    }
}

// The integers that SDL_mixer and its decoders compute with hold no more than this.
static int fadeTime(int milliseconds) { return std::clamp(milliseconds, 0, 30 * 60 * 1000); }
static double position(double seconds) { return seconds > 0 ? std::min(seconds, 1e6) : 0.0; }

// Unlike for sounds, SDL_mixer counts the first playback of music too.
static int playbacks(int times) { return times > 0 ? times : -1; }

bool Music::isReady() {
    if (!music) return false;
    awaitFadeOutOfOther();
    lastStarted = music.get();
    return true;
}

void Music::loop(int times) {
    if (!isReady() || Mix_PlayMusic(music.get(), playbacks(times)) < 0) raiseEngine("Unable to play music!");
}

void Music::play(PyObject* pos) {
    loop(1);
    if (pos && pos != Py_None) Mix_SetMusicPosition(position(Convert<double>::from(pos)));
}

void Music::stop() { Mix_HaltMusic(); }
void Music::pause() { Mix_PauseMusic(); }
void Music::resume() { Mix_ResumeMusic(); }
void Music::fadeOut(int milliseconds) { Mix_FadeOutMusic(fadeTime(milliseconds)); }
void Music::fadeIn(int milliseconds, double pos) { call<&Music::fadeInLoop>(*this, milliseconds, 1, pos); }
void Music::fadeInLoop(int milliseconds, int times, double pos) {
    if (isReady()) Mix_FadeInMusicPos(music.get(), playbacks(times), fadeTime(milliseconds), position(pos));
}

void declareSound(Module& module) {
    Class<SoundHandle>("zelvarine.SoundHandle",
        "Controls the sound that plays on one channel of the mixer, as Sound.play gives it.\n\n"
        "It stands for the channel: once another sound plays there, it acts on that one. A negative\n"
        "channel stands for none, and a number beyond the engine's channels never plays.")
        .init<&SoundHandle::channel>({{"channel"}})
        .method<&SoundHandle::stop>("stop", {}, "Ends the sound.")
        .method<&SoundHandle::pause>("pause", {}, "Holds the sound where it is.")
        .method<&SoundHandle::resume>("resume", {}, "Goes on after `pause`.")
        .method<&SoundHandle::isPlaying>("isPlaying", {},
            "1 while the sound plays or is paused, 0 after its end; None without a channel.\n@return(int or None)")
        .addTo(module.raw());
    Class<Sound, Resource>("zelvarine.Sound",
        "A short sample held in memory, loaded from a WAV or OGG file; IOError if that fails.\n\n"
        "Keep the object as long as it is to be heard: its playbacks end with it.")
        .init<&Sound::init>({{"filepath"}})
        .method<&Sound::play>("play", {},
            "Plays once on any free channel, and sets all channels to the sound volume.\n"
            "Raises EngineException if no channel is free.\n@return(SoundHandle)")
        .method<&Sound::loop>("loop", {{"times"}},
            "Plays `times` times in a row, without end for 0 or less, on any free channel at the volume that\n"
            "the channel has. Raises EngineException if no channel is free.\n@return(SoundHandle)")
        .addTo(module.raw());
    Class<Music, Resource>("zelvarine.Music",
        "A piece of music that is read from its file while it plays; IOError if it cannot be loaded.\n\n"
        "One music plays at a time: starting one ends the one before, or waits while that fades out. Fades\n"
        "take half an hour at most.\n"
        "When it ends by itself, by `stop` or by a fade-out, the engine fires a MusicStoppedEvent in one\n"
        "of the next frames. Keep the object as long as it is to be heard.")
        .init<&Music::init>({{"filepath"}})
        .method<&Music::play>("play", {{"pos", None{}, "float or None"}},
            "Plays once, from `pos` in seconds if it is given. Raises EngineException if that fails.")
        .method<&Music::loop>("loop", {{"times"}},
            "Plays `times` times in a row, without end for 0 or less. Raises EngineException if that fails.")
        .method<&Music::stop>("stop", {}, "Ends the music that plays, whichever it is.")
        .method<&Music::pause>("pause", {}, "Holds the music that plays, whichever it is.")
        .method<&Music::resume>("resume", {}, "Goes on after `pause`.")
        .method<&Music::fadeOut>(
            "fadeOut", {{"milliseconds"}}, "Ends the music that plays, whichever it is, by turning it down gradually.")
        .method<&Music::fadeIn>("fadeIn", {{"milliseconds"}, {"pos", 0.0}},
            "Plays once from `pos` in seconds, turned up gradually. A failure raises nothing.")
        .method<&Music::fadeInLoop>("fadeInLoop", {{"milliseconds"}, {"times"}, {"pos", 0.0}},
            "Plays `times` times in a row, without end for 0 or less, from `pos` in seconds and turned up\n"
            "gradually at the start. A failure raises nothing.")
        .addTo(module.raw());
    Class<MusicStoppedEvent, Event>(
        "zelvarine.MusicStoppedEvent", "The music has ended: by itself, by Music.stop or by a fade-out.")
        .init<&MusicStoppedEvent::init>()
        .addTo(module.raw());
    module.constant("soundVolume", MIX_MAX_VOLUME)
        .function<setSoundVolume>("setSoundVolume", {{"volume"}},
            "Sets the volume of all sounds, also of those that play; from 0 to 128, as at the start.")
        .function<getSoundVolume>("getSoundVolume", {},
            "The volume of sounds as last set, 128 at the start: the value of the module's `soundVolume`, which\n"
            "scripts may set as well; `Sound.play` applies it.\n@return(int)")
        .function<setMusicVolume>(
            "setMusicVolume", {{"volume"}}, "Sets the volume of the music; from 0 to 128, as at the start.")
        .function<getMusicVolume>("getMusicVolume", {}, "The volume of the music, from 0 to 128.");
}

}  // namespace zv
