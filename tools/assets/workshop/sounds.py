"""The sounds of the demo, as arrays of samples between -1 and 1."""

import wave

import numpy as np

RATE = 22050


def save(path, samples):
    with wave.open(path, "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(np.floor(np.clip(samples, -1, 1) * 32000 + 0.49371).astype("<i2").tobytes())


def footstep(rng, pitch):
    """Heel and sole on stone: a dull knock, and grit that trails off."""
    time = np.arange(int(RATE * 0.26)) / RATE
    knock = np.sin(2 * np.pi * pitch * time * (1 - time)) * np.exp(-time * 38)
    grit = _low_pass(rng.rand(len(time)) * 2 - 1, 0.35) * np.exp(-time * 30)
    sole = _low_pass(rng.rand(len(time)) * 2 - 1, 0.2) * np.exp(-np.abs(time - 0.075) * 60)
    return _normalised((knock * 0.9 + grit * 0.8 + sole * 0.9) * _fade(len(time)), 0.6)


def chime():
    """Three glass bells, one after the other."""
    samples = np.zeros(int(RATE * 1.2))
    for start, note in ((0.0, 76), (0.08, 80), (0.16, 88)):
        _strike(samples, start, _bell(_frequency(note), 1.0), 0.5, loop=False)
    return _normalised(samples * _fade(len(samples)), 0.6)


# A slow waltz: chord of each bar as bass, third and fifth, and its melody as (note, beats). 62 is the D above middle C.
_BEAT = 0.5
_BARS = [
    ((50, 57, 65), [(69, 1), (74, 1), (77, 1)]),
    ((48, 55, 64), [(76, 1.5), (74, 0.5), (76, 1)]),
    ((46, 58, 65), [(77, 1), (79, 1), (77, 1)]),
    ((53, 57, 60), [(72, 2), (69, 1)]),
    ((43, 58, 62), [(70, 1), (74, 1), (79, 1)]),
    ((50, 57, 65), [(77, 1.5), (76, 0.5), (74, 1)]),
    ((45, 57, 64), [(76, 2), (69, 1)]),
    ((45, 61, 64), [(73, 1), (76, 1), (69, 1)]),
    ((50, 57, 65), [(69, 1), (74, 1), (77, 1)]),
    ((46, 58, 62), [(79, 1.5), (77, 0.5), (74, 1)]),
    ((43, 55, 58), [(70, 1), (74, 1), (73, 1)]),
    ((50, 57, 65), [(74, 3)]),
]


def tune():
    """A music box waltz. What still sounds at the end goes on at the start, so it loops without a seam."""
    samples = np.zeros(int(RATE * _BEAT * 3 * len(_BARS)))
    for bar, (chord, melody) in enumerate(_BARS):
        start = bar * 3 * _BEAT
        for beat, note in enumerate(chord):
            _strike(samples, start + beat * _BEAT, _pluck(_frequency(note)), 0.34 if beat == 0 else 0.2)
        for note in chord:
            _strike(samples, start, _pad(_frequency(note)), 0.05)
        for note, beats in melody:
            _strike(samples, start, _bell(_frequency(note), 1.8), 0.3)
            start += beats * _BEAT
    return _normalised(samples, 0.7)


def _frequency(note):
    return 440.0 * 2 ** ((note - 69) / 12.0)


def _strike(samples, start, note, volume, loop=True):
    places = int(start * RATE) + np.arange(len(note))
    if not loop:
        note, places = note[places < len(samples)], places[places < len(samples)]
    np.add.at(samples, places % len(samples), note * volume)


def _bell(frequency, seconds):
    time = np.arange(int(RATE * seconds)) / RATE
    partials = ((1.0, 1.0, 3.2), (2.0, 0.35, 5.5), (3.01, 0.18, 8.0), (5.4, 0.08, 14.0))
    sound = sum(power * np.sin(2 * np.pi * frequency * ratio * time) * np.exp(-time * decay)
                for ratio, power, decay in partials)
    return sound * _fade(len(time))


def _pluck(frequency):
    time = np.arange(int(RATE * 1.4)) / RATE
    sound = sum(np.sin(2 * np.pi * frequency * k * time) * np.exp(-time * (2.2 + k * 1.6)) / k ** 1.4
                for k in (1, 2, 3, 4))
    return sound * _fade(len(time))


def _pad(frequency):
    time = np.arange(int(RATE * _BEAT * 3.6)) / RATE
    sound = np.sin(2 * np.pi * frequency * time) + np.sin(2 * np.pi * frequency * 1.003 * time)
    return sound * np.sin(np.pi * np.arange(len(time)) / len(time)) ** 2


def _fade(count):
    """Full volume with a soft start and end, against clicks."""
    ends = np.minimum(np.arange(count) / (RATE * 0.004), np.arange(count)[::-1] / (RATE * 0.03))
    return np.clip(ends, 0, 1)


def _low_pass(samples, share):
    out, level = np.empty_like(samples), 0.0
    for i, sample in enumerate(samples):
        level += (sample - level) * share
        out[i] = level
    return out


def _normalised(samples, peak):
    return samples * (peak / np.abs(samples).max())
