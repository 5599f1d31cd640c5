"""Sounds and music, playing in real time where it matters."""

import os
import struct
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
    yield lambda frames: [len(events) for _ in range(frames) if not (events.clear() or engine.update())]
    Music.__new__(Music).stop()
    engine.update()


def seconds(running):
    """How long something goes on."""
    started = time.time()
    while running():
        assert time.time() < started + 20, "there is no end"
        time.sleep(0.005)
    return time.time() - started


@pytest.mark.parametrize("kind", ["Sound", "Music"])
@pytest.mark.parametrize("path", ["wav", OGG])
def test_what_is_heard(wav, kind, path, tmp_path):
    """Counts the samples that reach the device, which takes them as fast as they come."""
    recording = str(tmp_path / "recording")
    helpers.runScript("""
import helpers, time, zelvarine
player = zelvarine.{}({!r})
for times in 1, 3:
    player.loop(times)
    while helpers.sdl.Mix_Playing(-1) or helpers.sdl.Mix_PlayingMusic():
        time.sleep(0.01)
time.sleep(0.1)
""".format(kind, wav if path == "wav" else path), SDL_AUDIODRIVER="disk", SDL_DISKAUDIOFILE=recording, SDL_DISKAUDIODELAY="1")
    loud = numpy.count_nonzero(abs(numpy.fromfile(recording, "<i2")[::2].astype(int)) > 500)
    assert loud == pytest.approx(4 * 4410, rel=0 if path == "wav" else 0.15)


def test_handles_control_and_tell_of_their_sound(engine, wav):
    sound = Sound(wav)
    endless, paused = sound.loop(0), sound.play()
    paused.pause()
    time.sleep(0.2)
    assert (endless.isPlaying(), paused.isPlaying(), SoundHandle(-1).isPlaying()) == (1, 1, None)
    endless.stop(), paused.resume()
    assert endless.isPlaying() == 0 and seconds(paused.isPlaying) and paused.isPlaying() == 0


def test_each_ending_of_music_becomes_one_event_and_none_is_lost(endings, wav):
    music, other = Music(wav), Music(OGG)
    music.play()
    seconds(lambda: endings(1) == [0])
    for _ in range(3):
        music.loop(0), other.stop()  # whichever plays
    assert endings(5) == [1, 1, 1, 0, 0]
    for _ in range(20):
        music.play(), music.fadeOut(1)  # ends in the audio thread
        other.play(), other.stop()
    assert sum(endings(60)) == 40
    music.loop(0), music.fadeOut(150)
    assert 0.1 < seconds(other.play)  # None, so that is one call, which waits for the end
    music.loop(0), music.fadeOut(60000), music.pause()
    other.play()  # cuts off what stands still
    for _ in range(2):  # the same music starts over at once
        music.loop(0), music.fadeOut(60000)
    del music
    assert endings(4) == [1, 1, 1, 0]


def test_volumes_and_other_numbers(engine, wav):
    sound, music = Sound(wav), Music(wav)
    sound.loop(0)
    assert (zelvarine.soundVolume, zelvarine.getMusicVolume()) == (128, 128)
    for volume, heard in (1000, 128), (40, 40):
        zelvarine.setSoundVolume(volume), zelvarine.setMusicVolume(volume)
        assert (zelvarine.getSoundVolume(), zelvarine.soundVolume, helpers.sdl.Mix_Volume(0, -1)) == (volume, volume, heard)
        assert zelvarine.getMusicVolume() == heard
    zelvarine.soundVolume = 7
    assert (helpers.sdl.Mix_Volume(0, -1), sound.play(), helpers.sdl.Mix_Volume(0, -1))[::2] == (40, 7)
    for milliseconds, pos in (2 ** 31 - 1, -1e300), (-2 ** 31, float("nan")), (0, 1e300):
        music.fadeIn(milliseconds, pos), music.play(pos)
    with pytest.raises(TypeError):
        music.play("x")  # plays all the same
    assert helpers.sdl.Mix_PlayingMusic() == 1
    helpers.sdl.Mix_AllocateChannels(0)
    zelvarine.setSoundVolume(128), zelvarine.setMusicVolume(128)
    helpers.sdl.Mix_AllocateChannels(32)


def aiff(channels, exponent):
    return struct.pack(">4sI4s4sIhIhHQ4sIQQ", b"FORM", 54, b"AIFF", b"COMM", 18, channels, 4, 16, exponent, 0xAC44 << 48,
                       b"SSND", 16, 0, 0)


def test_what_cannot_be_played(endings, wav, tmp_path):
    sound = Sound(wav)
    handles = [sound.loop(0) for _ in range(32)]
    for operation, words in ((sound.play, "Unable to play the sound!"), (Music.__new__(Music).play, "Unable to play music!")):
        with pytest.raises(EngineException, match=words):
            operation()
    del sound, operation
    assert [handle.isPlaying() for handle in handles] == [0] * 32  # sounds end with their object
    path = tmp_path / "damag\u00e9"
    with open(wav, "rb") as file:
        head, channels, rate, rest, data = struct.unpack("22s2s4s8s%ds" % (os.path.getsize(wav) - 36), file.read())
    loops = struct.pack("<4sI28xII", b"smpl", 36, 2 ** 24, 0)
    damages = [head + b"\0\0" + rate + rest + data, head + b"\0\1" + rate + rest + data, aiff(0, 0x400E), aiff(1, 0x4000),
               head + channels + b"\1\0\0\0" + rest + data, head + channels + rate + rest + loops + data, b""]
    for kind, what in (Sound, "sound"), (Music, "music"):
        path.write_bytes(aiff(1, 0x400E))
        loaded = kind(str(path))
        for damaged in damages:
            path.write_bytes(damaged)
            with pytest.raises(IOError, match="Unable to load %s file '%s'" % (what, path)):
                loaded.__init__(str(path))
        with pytest.raises(EngineException):
            loaded.play()
