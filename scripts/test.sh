#!/usr/bin/env bash
# Installs what is missing, builds everything and runs every test: the normal
# build (GUI tests headless) and its Debian package, then the core tests under
# AddressSanitizer and UndefinedBehaviorSanitizer.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/install-deps.sh

jobs=$(nproc)
export QT_QPA_PLATFORM=offscreen

cmake -S . -B build/release -G Ninja -DCMAKE_BUILD_TYPE=Release -DQUINTLINE_WITH_MPI=ON
cmake --build build/release -j "$jobs"
ctest --test-dir build/release --output-on-failure -j "$jobs"
cpack --config build/release/CPackConfig.cmake -G DEB -B build/package

cmake -S . -B build/sanitize -G Ninja -DCMAKE_BUILD_TYPE=Debug -DQUINTLINE_SANITIZE=ON \
  -DQUINTLINE_WITH_GUI=OFF -DQUINTLINE_WITH_BENCH=OFF
cmake --build build/sanitize -j "$jobs"
ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1 \
  ctest --test-dir build/sanitize --output-on-failure -j "$jobs"

# The readers of untrusted files, fuzzed for a minute each.
./scripts/fuzz.sh 60
