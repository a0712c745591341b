#!/usr/bin/env bash
# quintline-batch over MPI: three ranks write every output of a one-thread run
# (times aside), and a run that loses a rank keeps whole lines that resume
# completes. Usage: mpiRuns.sh PROGRAM MPIEXEC SCRATCH-FOLDER
set -euo pipefail
trap 'echo "failed at line $LINENO" >&2' ERR
program=$1 mpiexec=$2 dir=$3
rm -rf "$dir" && mkdir -p "$dir" && cd "$dir"
mpi() { "$mpiexec" -np "$1" --oversubscribe --allow-run-as-root "$program" "${@:2}"; }
outputs=(--report r.txt --games g --sgf a.sgf --games-csv g.csv --summary-json s.json)

# Every output in folder $1, the report's times and the JSON's thread count cut.
kept() {
  (cd "$1" && for f in $(find . -type f ! -name 'err.log' | sort); do
    echo "== $f" && sed -E 's/(Time[^:]*: ).*/\1/; s/"jobs": [0-9]+/"jobs"/' "$f"
  done)
}

# The command on one thread in $1/one, and on three ranks of two threads in $1/mpi.
compare() {
  local name=$1 && shift && mkdir -p "$name/one" "$name/mpi"
  (cd "$name/one" && "$program" "$@" --jobs 1 "${outputs[@]}" > out.log 2> err.log)
  (cd "$name/mpi" && mpi 3 "$@" --jobs 2 "${outputs[@]}" > out.log 2> err.log)
  diff <(kept "$name/one") <(kept "$name/mpi")
  diff "$name/one/err.log" "$name/mpi/err.log"
}

# A usage error is told once, by rank 0, with the usual status.
status=0 && mpi 3 tournament --cycles x 2> usage.log || status=$?
[ $status = 2 ]
[ "$(grep -c -- --cycles usage.log)" = 1 ]

# A tournament that SPRT stops after 8 of 14 cycles; every rank plays on past it.
compare sprt tournament --cycles 14 --seed 5 --sprt 1 --elo0 0 --elo1 200
grep -q '"stoppedBy": "sprt"' sprt/one/s.json
[ "$(grep -c '^ [AB] [0-9]' sprt/one/r.txt)" = 8 ]

# A test suite from the openings of those cycles, and an entry that is refused.
list=$'11\r\n'
for n in 1 2 3 4 5 6 7 8 1 2; do
  f=$(printf 'sprt/one/g/c%06d-p01.txt' $n)
  { sed -n 1,5p "$f"; printf ' 6 \r\n'; sed -n 7,12p "$f"; sed -n '/UserTurn/,$p' "$f"; } > "e$n.txt"
  list+="../../e$n.txt"$'\r\n'
done
printf '%s' "$list../../missing.txt"$'\r\n' > list.txt
compare suite testsuite --list ../../list.txt
grep -q 'entry 11 (../../missing.txt) skipped' suite/mpi/err.log

# A rank killed mid-run: mpirun names it and stops the others as on SIGTERM,
# rank 0 keeps whole lines and its sidecar, and resume over two ranks ends with
# the uninterrupted run's outputs.
run=(tournament --cycles 24 --seed 9 --jobs 1 "${outputs[@]}")
mkdir -p whole cut
(cd whole && "$program" "${run[@]}" > out.log 2> err.log)
cd cut
mpi 3 "${run[@]}" > out.log 2> err.log &
launcher=$!
until [ "$(cat r.txt 2>/dev/null | wc -l)" -ge 5 ]; do sleep 0.05; done
for pid in $(pgrep -P "$(pgrep -P $launcher)"); do
  if grep -qz '^OMPI_COMM_WORLD_RANK=2$' "/proc/$pid/environ"; then kill -9 "$pid"; fi
done
! wait $launcher
grep -q 'rank 2' err.log
[ -f r.txt.run.json ]
[ "$(grep -c '^ [AB] [0-9]' r.txt)" -lt 24 ]
mpi 2 resume --report r.txt > out.log 2> err.log
cd ..
diff <(kept whole | grep -v '^== ./out.log' ) <(kept cut | grep -v '^== ./out.log')
echo "all outputs equal"
