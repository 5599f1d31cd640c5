"""Sounds and music, playing in real time where it matters."""

import time

import helpers
import numpy
import pytest
import zelvarine as z
from helpers import DATA
from zelvarine import EngineException, Music, MusicStoppedEvent, Sound, SoundHandle

WAV, OGG = str(DATA / "click.wav"), str(DATA / "tone.ogg")  # 100 ms each


@pytest.mark.parametrize("kind", ["Sound", "Music"])
def test_what_is_heard(kind, tmp_path):
    """Counts the samples that reach the device, which takes them as fast as they come."""
    recording = str(tmp_path / "recording")
    helpers.run_script("""
import helpers, time, zelvarine
player = zelvarine.{}({!r})
for times in 1, 3:
    player.loop(times)
    while helpers.sdl.Mix_Playing(-1) or helpers.sdl.Mix_PlayingMusic():
        time.sleep(0.01)
time.sleep(0.1)
""".format(kind, WAV), quiet=False, SDL_AUDIODRIVER="disk", SDL_DISKAUDIOFILE=recording, SDL_DISKAUDIODELAY="1")
    assert numpy.count_nonzero(numpy.fromfile(recording, "<i2")) == 4 * 2 * 4410


def test_handles_control_and_tell_of_their_sound(engine):
    sound = Sound(OGG)
    endless, paused = sound.loop(0), sound.play()
    paused.pause()
    time.sleep(0.2)
    assert (endless.isPlaying(), paused.isPlaying(), SoundHandle(-1).isPlaying()) == (1, 1, None)
    endless.stop(), paused.resume()
    assert (endless.isPlaying(), paused.isPlaying()) == (0, 1)
    time.sleep(0.5)
    assert paused.isPlaying() == 0


def test_each_ending_of_music_becomes_one_event_and_none_is_lost(engine):
    def endings(frames):
        return [len(events) for _ in range(frames) if not (events.clear() or engine.update())]

    music, other, events = Music(WAV), Music(OGG), helpers.record(engine, MusicStoppedEvent)
    music.play()
    time.sleep(0.5)
    for _ in range(2):
        music.loop(0), other.stop()  # whichever plays
    assert endings(5) == [1, 1, 1, 0, 0]
    for _ in range(20):
        music.play(), music.fadeOut(1)  # ends in the audio thread
        other.play(), other.stop()
    assert sum(endings(60)) == 40
    music.loop(0), music.fadeOut(150)
    started = time.time()
    other.play()
    assert time.time() > started + 0.1  # it waits for the end
    music.loop(0), music.fadeOut(60000), music.pause()
    other.play()  # cuts off what stands still
    for _ in range(2):  # the same music starts over at once
        music.loop(0), music.fadeOut(60000)
    del music
    assert endings(4) == [1, 1, 1, 0]


def test_volumes(engine):
    sound, heardVolume = Sound(WAV), lambda: helpers.sdl.Mix_Volume(0, -1)
    sound.loop(0)
    assert (z.soundVolume, z.getMusicVolume()) == (128, 128)
    for volume, heard in (1000, 128), (40, 40):
        z.setSoundVolume(volume), z.setMusicVolume(volume)
        assert (z.getSoundVolume(), z.soundVolume, z.getMusicVolume(), heardVolume()) == (volume, volume, heard, heard)
    z.soundVolume = 7
    assert (heardVolume(), sound.play() and heardVolume()) == (40, 7)
    z.setSoundVolume(128), z.setMusicVolume(128)


def test_what_cannot_be_played(engine):
    sound = Sound(WAV)
    handles = [sound.loop(0) for _ in range(32)]
    pytest.raises(EngineException, Music.__new__(Music).play).match("Unable to play music!")
    pytest.raises(EngineException, sound.play).match("Unable to play the sound!")
    del sound
    assert [handle.isPlaying() for handle in handles] == [0] * 32  # sounds end with their object


@pytest.mark.parametrize("kind", [Sound, Music])
def test_damaged_files(kind, engine):
    loaded = kind(str(DATA / "click.aiff"))
    for path in (DATA / "damaged").glob("*.[wa]*"):
        with pytest.raises(IOError, match="Unable to load %s file '%s'" % (kind.__name__.lower(), path)):
            loaded.__init__(str(path))
    pytest.raises(EngineException, loaded.play)
