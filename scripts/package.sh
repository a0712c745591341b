#!/usr/bin/env bash
# Installs what is missing, builds the release and makes the Debian package of
# the programs in build/package/ (quintline_VERSION_ARCH.deb).
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/install-deps.sh

cmake -S . -B build/release -G Ninja -DCMAKE_BUILD_TYPE=Release -DQUINTLINE_WITH_MPI=ON
cmake --build build/release -j "$(nproc)"
cpack --config build/release/CPackConfig.cmake -G DEB -B build/package
