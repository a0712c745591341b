#!/usr/bin/env bash
# Installs everything the build, the tests and the desktop program need on a
# fresh Debian machine. Safe to run again: apt-get skips what is there.
set -euo pipefail

packages=(
  gcc g++ cmake make ninja-build pkg-config procps
  qt6-base-dev qt6-base-dev-tools libgl-dev libxcb1-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  xvfb xauth x11-apps imagemagick
  clang-format clang clang-tidy libclang-rt-14-dev ccache
  libcli11-dev nlohmann-json3-dev libboost-math-dev
  libopenmpi-dev openmpi-bin
  tesseract-ocr tesseract-ocr-eng openbox x11-utils
  desktop-file-utils appstream dpkg-dev fakeroot file fonts-dejavu-extra librsvg2-bin man-db
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done

if [ ${#missing[@]} -gt 0 ]; then
  SUDO=""
  [ "$(id -u)" -eq 0 ] || SUDO="sudo"
  export DEBIAN_FRONTEND=noninteractive
  $SUDO apt-get update -qq
  $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
