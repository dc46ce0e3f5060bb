#!/usr/bin/env bash
# Fresh machine to running program: installs what is missing, builds, and starts Quillon with a
# simulated R770 drive on COM1 (station 1, model 1205, 19200 baud, 8 data bits, no parity,
# 2 stop bits). The simulated drive stops when the program ends.
set -euo pipefail
here="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
bash "$here/scripts/setup.sh"
bash "$here/scripts/build.sh"
build="${QUILLON_BUILD_DIR:-$here/build}"

workdir="$(mktemp -d)"
sim_pid=""
cleanup() {
  [ -n "$sim_pid" ] && kill "$sim_pid" 2>/dev/null && wait "$sim_pid" 2>/dev/null
  rm -rf "$workdir"
}
trap cleanup EXIT

if [ -x "$build/sim/r770-sim" ]; then
  pty="$workdir/com1"
  "$build/sim/r770-sim" --pty "$pty" --station 1 --model 1205 --baud 19200 --data-bits 8 \
      --parity none --stop-bits 2 >"$workdir/sim.log" 2>&1 &
  sim_pid=$!
  for _ in $(seq 50); do [ -e "$pty" ] && break; sleep 0.1; done
  export QUILLON_PORTS="COM1=$pty"
  echo "Simulated R770 drive: station 1 on COM1 ($pty)"
fi

if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
  echo "No display (neither DISPLAY nor WAYLAND_DISPLAY is set): showing the demo headless."
  echo "For the window without a display, run: xvfb-run -a bash scripts/run.sh"
  echo
  echo "A new project for R770-2P5-Kxx (the simulated drive's model), first rows:"
  "$build/cli/quillon-cli" catalogue --model 1205 | head -n 20
  exit 0
fi
"$build/src/quillon"
