"""The display that ./run makes where there is none: reached from this machine only, with a password, and gone at the end."""

import os
import shutil
import socket
import subprocess

from made_up_tree import ROOT, MadeUpTree, run_tests

LOOPBACK = {"0100007F", "00000000000000000000000001000000"}  # 127.0.0.1 and ::1, as the kernel writes them
LISTENING = "0A"
REFUSED = b"\0\0\0\1"


def listening_addresses(port):
    found = set()
    for table in ("/proc/net/tcp", "/proc/net/tcp6"):
        if os.path.exists(table):
            with open(table, encoding="ascii") as lines:
                for fields in (line.split() for line in list(lines)[1:]):
                    address, number = fields[1].split(":")
                    if fields[3] == LISTENING and int(number, 16) == port:
                        found.add(address)
    return found


class OwnDisplay(MadeUpTree):
    def setUp(self):
        super().setUp()
        for tool in ("Xtigervnc", "tigervncpasswd", "xauth"):
            if shutil.which(tool) is None:
                self.skipTest(f"no {tool} here")
        self.environment = {name: value for name, value in os.environ.items() if name not in ("DISPLAY", "XAUTHORITY")}
        self.environment["XDG_RUNTIME_DIR"] = str(self.root)

    def start(self):
        """Runs a program on the display that says which display it got and ends with its input."""
        process = subprocess.Popen([str(ROOT / "scripts" / "with_display.sh"), "sh", "-c", "echo on $DISPLAY; read end"],
                                   env=self.environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.addCleanup(process.wait, 30)
        self.addCleanup(process.stdin.close)
        self.addCleanup(process.stdout.close)
        said = []
        for line in process.stdout:
            said.append(line)
            if line.startswith("on :"):
                return process, int(line[len("on :"):]), "".join(said)
        self.fail(f"no display: {said}")

    def test_OnlyThisMachineReachesIt(self):
        _, number, _ = self.start()
        addresses = listening_addresses(5900 + number)
        self.assertTrue(addresses)
        self.assertLessEqual(addresses, LOOPBACK)
        self.assertEqual(listening_addresses(6000 + number), set())

    def test_ItWantsAPasswordAndRefusesAWrongOne(self):
        _, number, _ = self.start()
        with socket.create_connection(("127.0.0.1", 5900 + number), timeout=20) as connection:
            stream = connection.makefile("rwb")
            self.assertTrue(stream.read(12).startswith(b"RFB 003."))
            stream.write(b"RFB 003.008\n")
            stream.flush()
            kinds = stream.read(stream.read(1)[0])
            self.assertEqual(list(kinds), [2])  # the password, and nothing else
            stream.write(bytes([2]))
            stream.flush()
            stream.read(16)
            stream.write(bytes(16))
            stream.flush()
            self.assertEqual(stream.read(4), REFUSED)

    def test_ItsSecretsAreReadByTheirOwnerOnly(self):
        self.start()
        state = next(self.root.glob("tavocalendar-display-*"))
        self.assertEqual(state.stat().st_mode & 0o077, 0)
        self.assertEqual((state / "password").stat().st_mode & 0o077, 0)

    def test_EveryStartHasANewPassword(self):
        passwords = set()
        for _ in range(2):
            process, _, said = self.start()
            passwords.add(said.split("Password, this once:")[1].split()[0])
            process.communicate("\n", timeout=30)
        self.assertEqual(len(passwords), 2)
        self.assertEqual({len(password) for password in passwords}, {8})

    def test_ASecondStartUsesTheFirstOnesDisplay(self):
        _, first, _ = self.start()
        _, second, said = self.start()
        self.assertEqual(second, first)
        self.assertIn("already there", said)

    def test_ItIsGoneWhenTheProgramEnds(self):
        process, number, _ = self.start()
        process.communicate("\n", timeout=30)
        self.assertEqual(process.returncode, 0)
        self.assertEqual(listening_addresses(5900 + number), set())
        self.assertEqual(list(self.root.glob("tavocalendar-display-*")), [])

    def test_TheProgramsStatusIsItsStatus(self):
        script = str(ROOT / "scripts" / "with_display.sh")
        result = subprocess.run([script, "sh", "-c", "exit 3"], env=self.environment, stdin=subprocess.DEVNULL,
                                capture_output=True, text=True)
        self.assertEqual(result.returncode, 3, result.stderr)


if __name__ == "__main__":
    run_tests()
