#!/usr/bin/env bash
# Fresh machine to green suite: installs what is missing, builds, runs every test headless.
set -euo pipefail
here="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
bash "$here/scripts/setup.sh"
bash "$here/scripts/build.sh"
export QT_QPA_PLATFORM=offscreen
cd "${QUILLON_BUILD_DIR:-$here/build}"
ctest --output-on-failure --timeout 300 -j"$(nproc)"
