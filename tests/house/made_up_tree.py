"""A small tree of sources made for one test, and the house's scripts run on it."""

import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent


SKIPPED = 77


def run_tests():
    """As unittest.main, but a test that was skipped does not count as passed."""
    result = unittest.main(exit=False, module="__main__").result
    sys.exit(1 if not result.wasSuccessful() else SKIPPED if result.skipped else 0)


class MadeUpTree(unittest.TestCase):
    def setUp(self):
        self.root = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.root)

    def write(self, path, text):
        file = self.root / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text)

    def run_script(self, name, environment=None):
        return subprocess.run([sys.executable, "-B", str(ROOT / "scripts" / name), str(self.root)],
                              capture_output=True, text=True, env=environment)
