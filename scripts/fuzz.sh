#!/usr/bin/env bash
# Builds the libFuzzer targets of tests/fuzz with clang and runs each for the
# given number of seconds (default 60), starting from its seed corpus. New
# inputs go to build/fuzz/corpus; a crash leaves its input in build/fuzz and
# makes the script fail.
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:-60}
targets=(fieldReaderFuzz boardFileFuzz testSuiteListFuzz)

cmake -S . -B build/fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCMAKE_CXX_COMPILER=clang++ -DQUINTLINE_FUZZ=ON \
  -DQUINTLINE_WITH_GUI=OFF -DQUINTLINE_WITH_BENCH=OFF
cmake --build build/fuzz -j "$(nproc)" --target "${targets[@]}"

for target in "${targets[@]}"; do
  work=build/fuzz/corpus/$target
  mkdir -p "$work"
  echo "== $target for ${seconds}s"
  (cd build/fuzz && "./tests/fuzz/$target" -max_total_time="$seconds" -print_final_stats=1 \
    -rss_limit_mb=1024 -timeout=10 "corpus/$target" "../../tests/fuzz/corpus/$target")
done
