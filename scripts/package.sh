#!/usr/bin/env bash
# Builds the Debian package of Quillon (quillon_VERSION_ARCH.deb) and lists what it installs.
# A fresh Release build goes to build-package/; QUILLON_PACKAGE_DIR names another build folder,
# and one already configured (such as build/) is packaged as it stands. Extra arguments go to
# cmake when it configures.
set -euo pipefail
here="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="${QUILLON_PACKAGE_DIR:-$here/build-package}"
if [ ! -f "$build/CMakeCache.txt" ]; then
  # Only the three programs are built: installing doesn't wait for the tests and benchmarks.
  cmake -S "$here" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DQUILLON_BUILD_TESTS=OFF \
    -DCMAKE_SKIP_INSTALL_ALL_DEPENDENCY=ON "$@" >/dev/null
fi
cmake --build "$build" -j"$(nproc)" --target quillon quillon-cli r770-sim
(cd "$build" && cpack -G DEB >/dev/null)
deb="$(ls -t "$build"/quillon_*.deb | head -n1)"
dpkg-deb -f "$deb" Package Version Depends Recommends
dpkg-deb --contents "$deb"
echo "$deb"
