#!/usr/bin/env bash
# Makes the Debian package of the calendar in build-package and, where lintian is at hand, has it looked through.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/common.sh

ensure_packages build package
say "Building in build-package"
cmake -S . -B build-package -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX=/usr -DTAVO_TESTS=OFF >/dev/null
cmake --build build-package --parallel "$(jobs_count)"
say "Making the package"
(cd build-package && rm -f ./*.deb && cpack -G DEB)
if command -v lintian >/dev/null; then
    lintian --fail-on error build-package/*.deb
fi
say "Install it with: apt-get install ./$(ls build-package/*.deb)"
