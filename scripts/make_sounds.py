#!/usr/bin/env python3
"""Makes the alarm sounds in res/sounds. Run it after a change here and commit what it wrote.

Each sound is calculated from sine waves, so that where it comes from is plain. From the first to the last, in order of
their names, they grow from gentle to insistent.
"""

import math
import struct
import sys
import wave
from pathlib import Path

RATE = 22050  # samples in a second
FADE = 0.004  # seconds in which a sound's ends are drawn to silence, so that none clicks


def audible(pitch, partials):
    """Those that the rate can hold: a higher one would come out as a wrong, lower tone."""
    return [partial for partial in partials if pitch * partial[0] < RATE / 2]


class Sound:
    """Samples of a length in seconds, to which notes are added."""

    def __init__(self, length):
        self.samples = [0.0] * round(length * RATE)

    def add(self, start, length, shape):
        """Adds shape(seconds since the start, share of the length that has passed)."""
        first = round(start * RATE)
        count = min(round(length * RATE), len(self.samples) - first)
        for i in range(count):
            self.samples[first + i] += shape(i / RATE, i / count)

    def pluck(self, start, pitch, loudness, decay, partials):
        """A struck tone: partials are (multiple of the pitch, loudness, speed of decay)."""
        partials = audible(pitch, partials)

        def shape(time, _):
            attack = min(time / 0.003, 1.0)
            return loudness * attack * sum(
                part * math.exp(-time * speed / decay) * math.sin(2 * math.pi * pitch * multiple * time)
                for multiple, part, speed in partials)

        self.add(start, len(self.samples) / RATE - start, shape)

    def swell(self, start, length, pitch, loudness, partials):
        """A tone that comes and goes softly."""
        partials = audible(pitch, partials)

        def shape(time, share):
            envelope = math.sin(math.pi * share) ** 2
            return loudness * envelope * sum(
                part * math.sin(2 * math.pi * pitch * multiple * time) for multiple, part in partials)

        self.add(start, length, shape)

    def beep(self, start, length, pitch, loudness, partials):
        """A tone of even loudness with short edges."""
        partials = audible(pitch, partials)

        def shape(time, _):
            envelope = min(time / 0.006, (length - time) / 0.006, 1.0)
            return loudness * envelope * sum(
                part * math.sin(2 * math.pi * pitch * multiple * time) for multiple, part in partials)

        self.add(start, length, shape)

    def write(self, path, peak):
        fade = round(FADE * RATE)
        for i in range(fade):
            self.samples[i] *= i / fade
            self.samples[-1 - i] *= i / fade
        scale = peak * 32767 / max(abs(sample) for sample in self.samples)
        values = [round(sample * scale) for sample in self.samples]
        with wave.open(str(path), "wb") as file:
            file.setnchannels(1)
            file.setsampwidth(2)
            file.setframerate(RATE)
            file.writeframes(struct.pack(f"<{len(values)}h", *values))


BELL = [(1.0, 1.0, 1.0), (2.0, 0.5, 1.6), (2.76, 0.35, 2.2), (5.4, 0.15, 4.0)]
BAR = [(1.0, 1.0, 1.0), (3.93, 0.3, 5.0), (9.2, 0.1, 12.0)]
STRING = [(1.0, 1.0, 1.0), (2.0, 0.45, 1.5), (3.0, 0.25, 2.2), (4.0, 0.1, 3.0)]
PAD = [(1.0, 1.0), (1.003, 0.8), (2.0, 0.25), (3.0, 0.08)]
HORN = [(1.0, 1.0), (2.0, 0.6), (3.0, 0.45), (4.0, 0.25), (5.0, 0.12)]
PIPE = [(1.0, 1.0), (3.0, 0.33), (5.0, 0.2), (7.0, 0.12)]

# Pitches in hertz.
C4, E4, G4 = 261.63, 329.63, 392.00
C5, D5, E5, G5, A5 = 523.25, 587.33, 659.26, 783.99, 880.00
C6, E6, G6 = 1046.50, 1318.51, 1567.98


def aurora():
    sound = Sound(2.6)
    for start, pitch in ((0.0, C4), (0.35, G4), (0.7, E5)):
        sound.swell(start, 1.9, pitch, 1.0, PAD)
    return sound


def breeze():
    sound = Sound(2.2)
    for index, pitch in enumerate((C5, E5, G5, C6, E6)):
        sound.pluck(0.13 * index, pitch, 1.0 - 0.1 * index, 0.45, STRING)
    return sound


def chime():
    sound = Sound(2.2)
    sound.pluck(0.0, G5, 1.0, 0.6, BELL)
    sound.pluck(0.5, E5, 1.0, 0.6, BELL)
    return sound


def droplets():
    sound = Sound(1.8)
    for index, pitch in enumerate((E5, G5, C6, G5, E6, C6)):
        sound.pluck(0.17 * index, pitch, 1.0, 0.16, BAR)
    return sound


def echo():
    sound = Sound(2.2)
    for index, loudness in enumerate((1.0, 0.6, 0.36, 0.2)):
        start = 0.42 * index
        sound.pluck(start, A5, loudness, 0.25, BELL)
        sound.pluck(start + 0.14, C6, loudness, 0.25, BELL)
    return sound


def fanfare():
    sound = Sound(1.7)
    for start, length, pitch in ((0.0, 0.14, C5), (0.16, 0.14, C5), (0.32, 0.14, E5), (0.48, 0.32, G5),
                                 (0.84, 0.14, E5), (1.0, 0.66, G5)):
        sound.beep(start, length, pitch, 1.0, HORN)
    return sound


def gallop():
    sound = Sound(1.9)
    for beat in range(4):
        for offset, pitch in ((0.0, C6), (0.11, C6), (0.22, E6)):
            sound.beep(0.47 * beat + offset, 0.08, pitch, 1.0, PIPE)
    return sound


def hurry():
    sound = Sound(2.0)
    for beat in range(10):
        sound.beep(0.2 * beat, 0.09, G6, 1.0, PIPE)
        sound.beep(0.2 * beat + 0.1, 0.09, C6, 1.0, PIPE)
    return sound


SOUNDS = ((aurora, 0.40), (breeze, 0.45), (chime, 0.50), (droplets, 0.55), (echo, 0.60), (fanfare, 0.65), (gallop, 0.75),
          (hurry, 0.85))


def main():
    folder = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).resolve().parent.parent / "res" / "sounds"
    folder.mkdir(parents=True, exist_ok=True)
    for make, peak in SOUNDS:
        make().write(folder / f"{make.__name__.capitalize()}.wav", peak)


if __name__ == "__main__":
    main()
