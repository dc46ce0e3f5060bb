#!/usr/bin/env bash
# Fresh machine to running program: installs what is missing, builds, and starts Quillon with a
# simulated R770 drive on COM1 (station 1, model 1205, 19200 baud, 8 data bits, no parity,
# 2 stop bits), the line the connection dialog offers by default. The simulated drive stops when
# the program ends.
set -euo pipefail
here="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
bash "$here/scripts/setup.sh"
bash "$here/scripts/build.sh"
build="${QUILLON_BUILD_DIR:-$here/build}"

workdir="$(mktemp -d)"
sim_pid=""
cleanup() {
  if [ -n "$sim_pid" ]; then
    kill "$sim_pid" 2>/dev/null || true
    wait "$sim_pid" 2>/dev/null || true
  fi
  rm -rf "$workdir"
}
trap cleanup EXIT

pty="$workdir/com1"
"$build/sim/r770-sim" --pty "$pty" --station 1 --model 1205 --baud 19200 --data-bits 8 \
    --parity none --stop-bits 2 >"$workdir/sim.log" 2>&1 &
sim_pid=$!
for _ in $(seq 50); do grep -q '^ready' "$workdir/sim.log" && break; sleep 0.1; done
if ! grep -q '^ready' "$workdir/sim.log"; then
  echo "The simulated drive did not start:" >&2
  cat "$workdir/sim.log" >&2
  exit 1
fi
export QUILLON_PORTS="COM1=$pty"
echo "Simulated R770 drive: station 1, R770-2P5-Kxx, 19200 8N2, on COM1 ($pty)"

if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
  echo "No display (neither DISPLAY nor WAYLAND_DISPLAY is set): showing the demo headless."
  echo "For the window without a display, run: xvfb-run -a bash scripts/run.sh"
  echo
  echo "The drive on COM1, station 1, identified as the program does when it links:"
  "$build/cli/quillon-cli" identify --port COM1 --station 1
  exit 0
fi
echo "In the program: File > New, choose R770-2P5-Kxx, Run > Connect, type station 1, 连接."
"$build/src/quillon"
