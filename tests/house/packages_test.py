"""What is missing is installed with the fewest steps, and nothing is touched when nothing is missing."""

import os
import subprocess

from made_up_tree import ROOT, MadeUpTree, run_tests

# Each tool writes down how it was called; what is installed and offered is told by two files.
TOOLS = {
    "dpkg-query": r"""shift 2
for package in "$@"; do grep -qx "$package" "$STAGE/installed" && echo "installed $package"; done
exit 1""",
    "apt-cache": r"""if grep -qx "$2" "$STAGE/offered"; then candidate=1.0; else candidate="(none)"; fi
printf '%s:\n  Candidate: %s\n' "$2" "$candidate"
sleep 0.1 # and goes on writing after its reader knows enough
echo "  Version table:" || exit 100""",
    "apt-get": r"""case "$1" in
-s) for package in "$@"; do ! grep -qx "$package" "$STAGE/harmful" || exit 100; done ;;
*) echo "$@" >>"$STAGE/calls" ;;
esac""",
    "id": "echo 0",
}


class EnsurePackages(MadeUpTree):
    def setUp(self):
        super().setUp()
        for name, text in TOOLS.items():
            self.write(f"tools/{name}", f"#!/bin/sh\n{text}\n")
            (self.root / "tools" / name).chmod(0o755)
        self.write("scripts/packages/one.txt", "# Why.\nalpha\nbeta # and why\n\n?gamma\n")
        self.write("installed", "")
        self.write("offered", "")
        self.write("harmful", "")
        self.write("calls", "")

    def ensure(self):
        environment = {**os.environ, "PATH": f"{self.root / 'tools'}:{os.environ['PATH']}", "STAGE": str(self.root)}
        result = subprocess.run(["bash", "-c", f'set -euo pipefail; . "{ROOT}/scripts/common.sh"; ensure_packages one'],
                                cwd=self.root, env=environment, capture_output=True, text=True)
        self.assertEqual(result.returncode, 0, result.stderr)
        return [line.split("Lock::Timeout=300 ")[1] for line in (self.root / "calls").read_text().splitlines()]

    def test_WithNothingMissingNothingIsFetched(self):
        self.write("installed", "alpha\nbeta\ngamma\n")
        self.assertEqual(self.ensure(), [])

    def test_OnlyWhatIsMissingIsInstalled(self):
        self.write("installed", "alpha\n")
        self.assertEqual(self.ensure(), ["update", "install -y --no-install-recommends beta"])

    def test_AnOptionalPackageComesAlongWhereItIsOffered(self):
        self.write("offered", "gamma\n")
        self.assertEqual(self.ensure(), ["update", "install -y --no-install-recommends alpha beta gamma"])

    def test_AnOptionalPackageThatIsNotOfferedCostsNothing(self):
        self.write("installed", "alpha\nbeta\n")
        self.assertEqual(self.ensure(), [])

    def test_AnOptionalPackageForWhichAnotherHadToGoIsLeftOut(self):
        self.write("installed", "alpha\nbeta\n")
        self.write("offered", "gamma\n")
        self.write("harmful", "gamma\n")
        self.assertEqual(self.ensure(), [])

    def test_APackageWhoseNameOnlyBeginsAlikeDoesNotCount(self):
        self.write("installed", "alpha-doc\nbeta\ngamma\n")
        self.assertEqual(self.ensure(), ["update", "install -y --no-install-recommends alpha"])


if __name__ == "__main__":
    run_tests()
