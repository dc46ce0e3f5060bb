#!/usr/bin/env bash
# Configures and builds Quillon into build/ (or $QUILLON_BUILD_DIR).
set -euo pipefail
here="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="${QUILLON_BUILD_DIR:-$here/build}"
cmake -S "$here" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE="${QUILLON_BUILD_TYPE:-RelWithDebInfo}" "$@" >/dev/null
cmake --build "$build" -j"$(nproc)"
