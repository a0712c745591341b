#!/usr/bin/env bash
# Installs what is missing, builds the desktop program and starts it; under a
# virtual X server when there is no display.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/install-deps.sh

cmake -S . -B build/release -G Ninja -DCMAKE_BUILD_TYPE=Release -DQUINTLINE_WITH_MPI=ON
cmake --build build/release -j "$(nproc)" --target quintline

if [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then
  exec ./build/release/app/quintline "$@"
else
  exec xvfb-run -a -s "-screen 0 1280x1024x24" ./build/release/app/quintline "$@"
fi
