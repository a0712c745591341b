#!/usr/bin/env bash
# Runs clang-tidy, with the checks of .clang-tidy, over every source file of the
# release build's compile database (src, app, tools, tests, bench; not the files
# Qt generates) and fails on any finding. An optional argument narrows the run
# to the files whose path below the checkout begins with it (a regular
# expression), e.g. `scripts/tidy.sh src/ui/`.
set -euo pipefail
cd "$(dirname "$0")/.."
build=build/release
jobs=$(nproc)

if [ ! -f "$build/compile_commands.json" ]; then
  cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DQUINTLINE_WITH_MPI=ON
fi
# The Qt sources include the headers moc generates during the build.
cmake --build "$build" -j "$jobs"

# run-clang-tidy colours its output whatever it writes to; plain text reads
# better in a log.
run-clang-tidy -quiet -j "$jobs" -p "$build" "^$PWD/${1:-(src|app|tools|tests|bench)/}" |
  sed 's/\x1b\[[0-9;]*m//g'
