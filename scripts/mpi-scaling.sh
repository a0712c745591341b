#!/usr/bin/env bash
# Measures quintline-batch over MPI on this machine: a 40-cycle tournament of
# depth-4 pairings on one rank and on two ranks, one thread each, printed as a
# speed-up ratio of the same run; then the same tournament on eight ranks
# (oversubscribed), whose outputs must equal the one-rank run's, times aside.
# Usage: scripts/mpi-scaling.sh [CYCLES]   (builds build/release if needed)
set -euo pipefail
cd "$(dirname "$0")/.."
cycles=${1:-40}

cmake -S . -B build/release -G Ninja -DCMAKE_BUILD_TYPE=Release -DQUINTLINE_WITH_MPI=ON > /dev/null
cmake --build build/release --target quintline-batch > /dev/null
program=$PWD/build/release/tools/quintline-batch
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cat > "$work/deep.txt" <<'SCHEDULE'
A(4):B(4)          1 2 4 4
B(4):A(4)          2 1 4 4
A-K-B(4):B(4)      3 2 4 4
B(4):A-K-B(4)      2 3 4 4
SCHEDULE

# Runs the tournament on $1 ranks in $work/$1 and prints the seconds it took.
run() {
  mkdir -p "$work/$1" && cd "$work/$1"
  local start end
  start=$(date +%s.%N)
  mpirun -np "$1" --oversubscribe --allow-run-as-root "$program" tournament --cycles "$cycles" \
    --seed 7 --jobs 1 --schedule ../deep.txt --report r.txt --games g --sgf a.sgf \
    --games-csv g.csv --summary-json s.json > out.txt 2> err.txt
  end=$(date +%s.%N)
  cd - > /dev/null
  awk -v a="$start" -v b="$end" 'BEGIN { print b - a }'
}

# Every output of the run in $work/$1, the report's times cut.
outputs() {
  (cd "$work/$1" && for f in $(find . -type f ! -name err.txt | sort); do
    echo "== $f" && sed -E 's/(Time[^:]*: ).*/\1/' "$f"
  done)
}

one=$(run 1)
two=$(run 2)
printf '%s cycles x 4 depth-4 games: 1 rank %.1f s, 2 ranks %.1f s, speed-up %.2fx\n' \
  "$cycles" "$one" "$two" "$(awk -v a="$one" -v b="$two" 'BEGIN { print a / b }')"
eight=$(run 8)
for ranks in 2 8; do
  if ! diff <(outputs 1) <(outputs $ranks) > /dev/null; then
    echo "$ranks ranks: outputs differ from one rank's" >&2
    exit 1
  fi
done
printf '8 ranks (oversubscribed): %.1f s, every output equal to the one-rank run\n' "$eight"
echo "load average: $(cut -d' ' -f1-3 /proc/loadavg)"
