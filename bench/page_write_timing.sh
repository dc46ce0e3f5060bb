#!/usr/bin/env bash
# quillon-cli page-write at 19200 baud against r770-sim --wire-timing on a pseudo-terminal
# pinned as COM1: the whole process (start included) set against the time the line needs for
# the same frames. Usage: bench/page_write_timing.sh [BUILD_DIR] [CODE VALUE] [RUNS]
set -euo pipefail
here="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="${1:-${QUILLON_BUILD_DIR:-$here/build}}"
code="${2:-00-11}"
value="${3:-0.29}"
runs="${4:-5}"

work="$(mktemp -d)"
sim_pid=""
cleanup() {
  if [ -n "$sim_pid" ]; then kill "$sim_pid" 2>/dev/null || true; wait "$sim_pid" 2>/dev/null || true; fi
  rm -rf "$work"
}
trap cleanup EXIT

"$build/sim/r770-sim" --pty "$work/com1" --station 1 --model 1205 --baud 19200 --data-bits 8 \
    --parity none --stop-bits 2 --wire-timing >"$work/sim.log" 2>&1 &
sim_pid=$!
for _ in $(seq 50); do grep -q '^ready' "$work/sim.log" && break; sleep 0.1; done
grep -q '^ready' "$work/sim.log" || { cat "$work/sim.log" >&2; exit 1; }
export QUILLON_PORTS="COM1=$work/com1"

echo "page-write $code $value, station 1, 19200 8N2, $runs runs"
for _ in $(seq "$runs"); do
  t0=$(date +%s%N)
  "$build/cli/quillon-cli" page-write --port COM1 --station 1 "$code" "$value" --timing \
      2>"$work/out" || { cat "$work/out" >&2; exit 1; }
  t1=$(date +%s%N)
  wire=$(sed -n 's/.*wire minimum \([0-9.]*\) s.*/\1/p' "$work/out" | head -1)
  paced=$(sed -n 's/.*with the required pauses \([0-9.]*\) s.*/\1/p' "$work/out" | head -1)
  awk -v ns=$((t1 - t0)) -v w="$wire" -v p="$paced" 'BEGIN {
    s = ns / 1e9
    printf "process %.4f s, wire minimum %.4f s (ratio %.3f), wire with SendFrame pacing %.4f s (ratio %.3f)\n", s, w, s / w, p, s / p }'
done
