#!/usr/bin/env bash
# Builds the Debian package of Quillon (quillon_VERSION_ARCH.deb) from a Release build in
# build-package/ (or $QUILLON_PACKAGE_DIR), and lists what it installs.
set -euo pipefail
here="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="${QUILLON_PACKAGE_DIR:-$here/build-package}"
cmake -S "$here" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DQUILLON_BUILD_TESTS=OFF "$@" >/dev/null
cmake --build "$build" -j"$(nproc)" --target quillon quillon-cli r770-sim
(cd "$build" && cpack -G DEB >/dev/null)
deb="$(ls -t "$build"/quillon_*.deb | head -n1)"
dpkg-deb --contents "$deb"
echo "$deb"
