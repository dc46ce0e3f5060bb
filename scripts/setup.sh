#!/usr/bin/env bash
# Installs every Debian package that building, running and testing Quillon needs.
# Idempotent: when everything is present it says nothing and touches nothing.
set -euo pipefail

PACKAGES=(
  # build
  cmake ninja-build g++ pkg-config
  qt6-base-dev qt6-serialport-dev qt6-qpa-plugins libgl-dev
  qt6-l10n-tools qt6-tools-dev  # lrelease and its CMake functions, for the English translation
  libxlsxwriter-dev libminizip-dev libfreexl-dev
  # run
  fonts-wqy-microhei
  # tests and independent protocol peers
  libgtest-dev libgmock-dev libmodbus-dev python3 python3-pymodbus python3-serial python3-serial-asyncio
  socat python3-openpyxl
  poppler-utils
  python3-xlwt  # legacy .xls workbooks written by another program, for the .xls import
  # a real window without a display
  xvfb xauth
  # install and package checks
  desktop-file-utils
)

missing=()
for p in "${PACKAGES[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
    missing+=("$p")
  fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

SUDO=""
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "setup: need root or sudo to install: ${missing[*]}" >&2; exit 1; }
  SUDO="sudo"
fi
echo "setup: installing ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
