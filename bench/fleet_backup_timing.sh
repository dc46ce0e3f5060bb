#!/usr/bin/env bash
# quillon-cli backup against r770-sim network modules on loopback, each with 4 stations and
# --wire-timing at 19200 baud: one module alone, then N modules side by side, and the ratio of
# the two; then a run where one module stops answering after its first frames.
# Usage: bench/fleet_backup_timing.sh [BUILD_DIR] [MODULES]
set -euo pipefail
here="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="${1:-${QUILLON_BUILD_DIR:-$here/build}}"
modules="${2:-8}"

work="$(mktemp -d)"
pids=()
cleanup() {
  for p in "${pids[@]}"; do kill "$p" 2>/dev/null || true; wait "$p" 2>/dev/null || true; done
  rm -rf "$work"
}
trap cleanup EXIT

# Starts one module; its "--tcp HOST:PORT" goes to stdout.
start_module() {
  local log="$work/sim$1.log"; shift
  "$build/sim/r770-sim" --tcp 0 --no-search --station 1,2,3,4 --model 201 --baud 19200 \
      --wire-timing "$@" >"$log" 2>&1 &
  pids+=($!)
  for _ in $(seq 100); do grep -q '^ready' "$log" && break; sleep 0.1; done
  grep -q '^ready' "$log" || { cat "$log" >&2; exit 1; }
  echo "--tcp $(sed -n 's/^tcp //p' "$log" | head -1)"
}

links=()
for i in $(seq "$modules"); do links+=($(start_module "$i")); done
silent=($(start_module silent --silent-after 20))

run() {  # OUT_DIR LINK_ARGS...: the seconds the backup took; its table goes to stderr
  local dir="$1"; shift
  mkdir -p "$dir"
  local t0 t1 rc=0
  t0=$(date +%s%N)
  "$build/cli/quillon-cli" backup "$@" --stations 1-4 --baud 19200 -o "$dir" >"$dir.out" 2>&1 || rc=$?
  t1=$(date +%s%N)
  cat "$dir.out" >&2
  echo "exit $rc" >&2
  awk -v ns=$((t1 - t0)) 'BEGIN { printf "%.3f", ns / 1e9 }'
}

one=$(run "$work/one" "${links[@]:0:2}")
all=$(run "$work/all" "${links[@]}")
echo "one module, 4 stations: $one s; $modules modules, 4 stations each: $all s;" \
     "ratio $(awk -v a="$all" -v o="$one" 'BEGIN { printf "%.3f", a / o }')"
echo "with a module that stops answering:"
run "$work/fault" "${links[@]:0:2}" "${silent[@]}" >/dev/null
