"""Sounds and music, playing in real time."""

import os
import time
import wave

import helpers
import numpy
import pytest
import zelvarine
from zelvarine import EngineException, Music, MusicStoppedEvent, Sound, SoundHandle

OGG = os.path.join(os.path.dirname(os.path.abspath(__file__)), "data", "tone.ogg")  # 100 ms


@pytest.fixture(scope="module")
def wav(tmp_path_factory):
    """A file of 100 ms."""
    path = str(tmp_path_factory.mktemp("sounds") / "click \u00e4.wav")
    with wave.open(path, "wb") as file:
        file.setparams((1, 2, 44100, 0, "NONE", ""))
        file.writeframes(b"\0\x20\0\xe0" * 2205)
    return path


@pytest.fixture
def endings(engine):
    """A function that runs frames and gives the number of music endings in each."""
    events = []
    engine.subscribeEvent(MusicStoppedEvent, events.append)

    def count(frames):
        counts = []
        for _ in range(frames):
            del events[:]
            engine.update()
            counts.append(len(events))
        return counts

    yield count
    Music.__new__(Music).stop()
    while count(1) != [0]:
        pass


def seconds(running):
    """How long something goes on."""
    started = time.time()
    while running():
        assert time.time() < started + 10, "there is no end"
        time.sleep(0.005)
    return time.time() - started


@pytest.mark.parametrize("kind, path", [("Sound", "wav"), ("Music", "wav"), ("Sound", OGG), ("Music", OGG)])
def test_what_is_heard(wav, kind, path, tmp_path):
    recording = str(tmp_path / "recording")
    helpers.runScript("""
import time, zelvarine
player = zelvarine.{}({!r})
for times in 1, 3:
    player.loop(times)
    time.sleep(0.1 * times + 0.15)
""".format(kind, wav if path == "wav" else path), SDL_AUDIODRIVER="disk", SDL_DISKAUDIOFILE=recording)
    left = numpy.fromfile(recording, "<i2")[::2].astype(int)
    loud = numpy.flatnonzero(abs(left) > 500) / 44.1  # in milliseconds
    bursts = numpy.split(loud, numpy.flatnonzero(numpy.diff(loud) > 60) + 1)
    assert [burst[-1] - burst[0] for burst in bursts] == pytest.approx([100, 300], abs=15)


def test_handles_control_and_tell_of_their_sound(engine, wav):
    sound = Sound(wav)
    endless, paused = sound.loop(0), sound.play()
    paused.pause()
    time.sleep(0.2)
    assert (endless.isPlaying(), paused.isPlaying(), SoundHandle(-1).isPlaying()) == (1, 1, None)
    endless.stop(), paused.resume()
    assert endless.isPlaying() == 0 and seconds(paused.isPlaying) < 5 and paused.isPlaying() == 0


def test_each_ending_of_music_becomes_one_event_and_none_is_lost(endings, wav):
    music, other = Music(wav), Music(OGG)
    music.play()
    assert seconds(lambda: endings(1) == [0]) < 5 and endings(1) == [0]
    for _ in range(3):
        music.loop(0), other.stop()  # whichever plays
    assert endings(5) == [1, 1, 1, 0, 0]
    for _ in range(20):
        music.play(), music.fadeOut(1)  # ends in the audio thread
        other.play(), other.stop()
    assert sum(endings(60)) == 40


def test_fade_outs_are_awaited_but_not_without_end(endings, wav):
    started, music, other = time.time(), Music(wav), Music(OGG)
    music.loop(0), music.fadeOut(150)
    assert 0.1 < seconds(other.play) < 5  # None, so that is one call, which waits
    music.loop(0), music.fadeOut(60000), music.pause()
    other.play()
    for _ in range(2):  # the same music starts over at once
        music.loop(0), music.fadeOut(60000)
    del music
    assert time.time() < started + 5
    assert endings(4) == [1, 1, 1, 0]


def test_volumes(engine, wav):
    assert (zelvarine.getSoundVolume(), zelvarine.getMusicVolume()) == (128, 128)
    sound = Sound(wav)
    sound.loop(0)
    for volume, heard in (1000, 128), (40, 40):
        zelvarine.setSoundVolume(volume)
        assert (zelvarine.getSoundVolume(), helpers.sdl.Mix_Volume(0, -1)) == (volume, heard)
    for volume, heard in (40, 40), (-5, 40), (1000, 128):
        zelvarine.setMusicVolume(volume)
        assert zelvarine.getMusicVolume() == heard
    zelvarine.setSoundVolume(128)


def test_what_cannot_be_played(endings, wav):
    sound, nothing = Sound(wav), Music.__new__(Music)
    handles = [sound.loop(0) for _ in range(32)]
    for operation, words in ((sound.play, "Unable to play the sound!"), (nothing.play, "Unable to play music!")):
        with pytest.raises(EngineException, match=words):
            operation()
    del sound, operation
    assert [handle.isPlaying() for handle in handles] == [0] * 32  # sounds end with their object
    for kind, words in ((Sound, "Unable to load sound file 'no \u00e4'"), (Music, "Unable to load music file 'no \u00e4'")):
        loaded = kind(wav)
        with pytest.raises(IOError, match=words):
            loaded.__init__("no \u00e4")
        loaded.play()


def test_audio_outlives_the_engine(wav):
    assert helpers.runScript("""
from zelvarine import *
engine = Engine()
engine.init("", (8, 8))
path = {!r}
sound, music, fading = Sound(path), Music(path), Music(path)
handle = sound.loop(0)
fading.loop(0), fading.fadeOut(60000)
engine.quit()
music.play(), music.fadeOut(60000)
fading.play(0.05), fading.fadeOut(60000)
del fading
handle.isPlaying(), handle.pause(), handle.stop(), sound.play()
Sound(path).play(), Music(path).play()
setSoundVolume(5), setMusicVolume(5)
print("safe")
""".format(wav)).stdout == "safe\n"
