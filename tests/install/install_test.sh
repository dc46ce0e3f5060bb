#!/usr/bin/env bash
# The installed Quillon on its own: the build installed into a staging prefix runs from there with
# nothing from the build tree. The CLI, the simulated drive and the program find the data files in
# share/quillon (none lies beside them in bin/), a second start of the program hands its project to
# the running one, and the desktop entry passes desktop-file-validate.
# Usage: install_test.sh BUILD_DIR
set -euo pipefail
build="$1"
work="$(mktemp -d)"
pids=()
cleanup() {
  for p in "${pids[@]}"; do kill "$p" 2>/dev/null || true; wait "$p" 2>/dev/null || true; done
  rm -rf "$work"
}
trap cleanup EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

cmake --install "$build" --prefix "$work/usr" >/dev/null
bin="$work/usr/bin" share="$work/usr/share"
# The programs' own temporary and configuration folders, away from the machine's.
export TMPDIR="$work/tmp" XDG_CONFIG_HOME="$work/config" QT_QPA_PLATFORM=offscreen
mkdir -p "$TMPDIR"

for f in quillon quillon-cli r770-sim; do [ -x "$bin/$f" ] || fail "$bin/$f not installed"; done
for f in PARAM.DAT IntialParam.DAT R770MOTORPARAM.DAT R770.SPE help/index.html; do
  [ -f "$share/quillon/$f" ] || fail "share/quillon/$f not installed"
done
[ -z "$(find "$bin" -type f ! -perm -u+x)" ] || fail "data files in bin/: $(ls "$bin")"
# No library is taken from the build tree either.
for f in quillon quillon-cli r770-sim; do
  ! ldd "$bin/$f" | grep -F "$(cd "$build" && pwd)" || fail "$f loads a library from the build tree"
done
[ -f "$share/icons/hicolor/scalable/apps/quillon.svg" ] || fail "icon not installed"
# The desktop's MIME database, built from the staged share/mime, maps *.qpj to the project type.
if command -v update-mime-database >/dev/null; then
  update-mime-database "$share/mime" >/dev/null 2>&1
  grep -q 'application/x-quillon-project:\*\.qpj' "$share/mime/globs2" || fail "no .qpj MIME type"
fi

# The CLI reads the installed catalogue; without it, it says so.
rows="$("$bin/quillon-cli" catalogue --model 201 | wc -l)"
[ "$rows" -gt 100 ] || fail "quillon-cli catalogue --model 201 printed $rows lines"
echo "quillon-cli catalogue --model 201: $rows rows from $share/quillon"

# The simulated drive starts on the installed catalogue and the CLI identifies it.
"$bin/r770-sim" --tcp 0 --no-search >"$work/sim.log" 2>&1 &
pids+=($!)
for _ in $(seq 50); do grep -q '^ready' "$work/sim.log" && break; sleep 0.1; done
address="$(sed -n 's/^tcp //p' "$work/sim.log")"
[ -n "$address" ] || fail "r770-sim did not start: $(cat "$work/sim.log")"
"$bin/quillon-cli" identify --tcp "$address" --station 1 --baud 9600 --parity none --stop 1 \
  || fail "quillon-cli identify against the installed r770-sim"

# The program starts offscreen and stays up; a second start hands its project over and ends.
"$bin/quillon" >"$work/first.log" 2>&1 &
first=$!
pids+=($first)
for _ in $(seq 50); do [ -S "$TMPDIR/quillon-$(id -u)" ] && break; sleep 0.1; done
[ -S "$TMPDIR/quillon-$(id -u)" ] || fail "the program did not come up: $(cat "$work/first.log")"
timeout 10 "$bin/quillon" "$work/handed.qpj" || fail "the second start did not hand its project over"
kill -0 "$first" 2>/dev/null || fail "the first program ended: $(cat "$work/first.log")"
echo "quillon: started from $bin, took the project of a second start"

mv "$share/quillon/PARAM.DAT" "$work/"
if "$bin/quillon-cli" catalogue --model 201 >/dev/null 2>"$work/err"; then
  fail "quillon-cli found a catalogue outside the installed data folder"
fi
grep -q "$share/quillon" "$work/err" || fail "the missing catalogue was not named: $(cat "$work/err")"

# The package, when scripts/package.sh has made one in this build folder, holds the same files.
deb="$(ls -t "$build"/quillon_*.deb 2>/dev/null | head -n1 || true)"
if [ -n "$deb" ]; then
  contents="$(dpkg-deb --contents "$deb")"
  for f in bin/quillon bin/quillon-cli bin/r770-sim share/quillon/PARAM.DAT \
           share/quillon/help/index.html share/applications/quillon.desktop \
           share/icons/hicolor/scalable/apps/quillon.svg share/mime/packages/quillon.xml; do
    grep -q " \./usr/$f\$" <<<"$contents" || fail "$deb lacks /usr/$f"
  done
  echo "dpkg-deb --contents $(basename "$deb"): every file in place"
fi

if command -v desktop-file-validate >/dev/null; then
  desktop-file-validate "$share/applications/quillon.desktop"
  echo "desktop-file-validate: quillon.desktop passes"
else
  echo "desktop-file-validate is missing (scripts/setup.sh installs it)" >&2
  exit 77
fi
