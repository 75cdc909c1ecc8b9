"""The alarm sounds that come with the program."""

import subprocess
import sys
import tempfile
import unittest
import wave
from array import array
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
SOUNDS = ROOT / "res" / "sounds"
NAMES = ["Aurora", "Breeze", "Chime", "Droplets", "Echo", "Fanfare", "Gallop", "Hurry"]


def read(path):
    with wave.open(str(path), "rb") as file:
        shape = (file.getnchannels(), file.getsampwidth(), file.getframerate())
        samples = array("h", file.readframes(file.getnframes()))
    if sys.byteorder == "big":
        samples.byteswap()
    return shape, samples


class Sounds(unittest.TestCase):
    def test_there_are_eight_short_ones(self):
        self.assertEqual(sorted(path.name for path in SOUNDS.iterdir()), [f"{name}.wav" for name in NAMES])
        for name in NAMES:
            shape, samples = read(SOUNDS / f"{name}.wav")
            self.assertEqual(shape, (1, 2, 22050), name)
            self.assertTrue(1.5 <= len(samples) / 22050 <= 3, name)

    def test_they_begin_and_end_in_silence_and_are_not_clipped(self):
        for name in NAMES:
            _, samples = read(SOUNDS / f"{name}.wav")
            self.assertEqual((samples[0], samples[-1]), (0, 0), name)
            peak = max(abs(sample) for sample in samples)
            self.assertTrue(13000 <= peak <= 28000, f"{name}: {peak}")

    def test_they_grow_louder_from_the_first_to_the_last(self):
        peaks = [max(abs(sample) for sample in read(SOUNDS / f"{name}.wav")[1]) for name in NAMES]
        self.assertEqual(peaks, sorted(peaks))

    def test_they_are_what_the_script_makes(self):
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run([sys.executable, ROOT / "scripts" / "make_sounds.py", folder], check=True)
            for name in NAMES:
                _, kept = read(SOUNDS / f"{name}.wav")
                _, made = read(Path(folder) / f"{name}.wav")
                self.assertEqual(len(kept), len(made), name)
                # Sines of another machine may round otherwise.
                self.assertLessEqual(max(abs(one - other) for one, other in zip(kept, made)), 1, name)


if __name__ == "__main__":
    unittest.main()
