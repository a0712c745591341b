#!/usr/bin/env bash
# The built quintline-batch. Alone: a second run on a report waits for the first
# or, with --no-wait, is refused; a run killed, stopped by each stop signal and
# killed again resumes to the uninterrupted run. Given MPIEXEC: three ranks write
# every output of a one-thread run, and a run that loses a rank keeps whole
# lines that resume completes. Usage: programRuns.sh PROGRAM SCRATCH [MPIEXEC]
set -eEuo pipefail
trap 'echo "failed at line $LINENO" >&2' ERR
program=$1 dir=$2 mpiexec=${3:-}
rm -rf "$dir" && mkdir -p "$dir/whole" "$dir/cut" && cd "$dir"
mpi() { "$mpiexec" -np "$1" --oversubscribe --allow-run-as-root "$program" "${@:2}"; }
outputs=(--report r.txt --games g --sgf a.sgf --games-csv g.csv --summary-json s.json)

# Every output in folder $1, the report's times and the JSON's thread count cut.
kept() {
  (cd "$1" && for f in $(find . -type f ! -name 'err.log' | sort); do
    echo "== $f" && sed -E 's/(Time[^:]*: ).*/\1/; s/"jobs": [0-9]+/"jobs"/' "$f"
  done)
}

# Waits until file $1 holds at least $2 lines.
await() { until [ "$(cat "$1" 2>/dev/null | wc -l)" -ge "$2" ]; do sleep 0.02; done; }

# Exits unless the last background process ends with status $1.
ended() { status=0 && wait $! || status=$?; [ $status = "$1" ]; }

if [ -z "$mpiexec" ]; then
  # The default list and report, the report locked by this shell.
  printf '0\r\n' > testsuit.txt
  printf 'first run\r\n' > result.txt
  exec 9< result.txt
  flock 9
  "$program" testsuite --no-wait 9<&- > out.log 2> err.log &
  ended 1
  [ "$(cat err.log)" = "quintline-batch: result.txt is in use by another run! Not started" ]
  "$program" testsuite 9<&- > out.log 2> err.log &
  await err.log 1
  [ "$(cat err.log)" = "quintline-batch: waiting for another run to finish with result.txt" ]
  [ "$(cat result.txt)" = $'first run\r' ]
  exec 9<&-
  ended 0
  [ "$(grep -c Time result.txt)" = 3 ]

  run=(tournament --cycles 40 --seed 9 --jobs 2 "${outputs[@]}")
  (cd whole && "$program" "${run[@]}" > out.log 2> err.log)
  cd cut
  # Killed as soon as the sidecar stands; then stopped by each stop signal and killed again.
  "$program" "${run[@]}" > out.log 2> err.log &
  await r.txt.run.json 1
  kill -KILL $!
  ended 137
  for signal in TERM HUP INT KILL; do
    lines=$(wc -l < r.txt)
    "$program" resume --report r.txt > out.log 2> err.log &
    await r.txt $((lines > 2 ? lines + 3 : 5))
    kill -$signal $!
    ended $((128 + $(kill -l $signal)))
    [ $signal = KILL ] && break
    # The whole cycles so far, in the report, the CSV and the summary alike.
    cycles=$(($(wc -l < r.txt) - 5))
    grep -q "stopped: $cycles whole lines kept" err.log
    tail -n 2 r.txt | head -n 1 | grep -q '^End Time: '
    grep -q '^1 A(3):B(2)' out.log
    grep -q "\"played\": $cycles,\$" s.json
    grep -q '"stoppedBy": "interrupt"' s.json
    [ "$(wc -l < g.csv)" = $((1 + cycles * 14)) ]
  done
  # A report that no longer ends with the run's block is refused, and left alone.
  cp r.txt block.txt && printf 'start Time: 12:00:00\r\n' >> r.txt && cp r.txt refused.txt
  "$program" resume --report r.txt 2> err.log &
  ended 1
  grep -q 'r.txt does not end with the unfinished run of r.txt.run.json' err.log
  cmp r.txt refused.txt
  # A torn last line is cut.
  cp block.txt r.txt && printf ' A 12 B' >> r.txt && rm block.txt refused.txt
  "$program" resume --report r.txt --jobs 1 > out.log 2> err.log
  [ ! -e r.txt.run.json ]
  cd ..
  diff <(kept whole) <(kept cut)
  echo "all outputs equal"
  exit
fi
# The command on one thread in $1/one, and on three ranks of two threads in $1/mpi.
compare() {
  local name=$1 && shift && mkdir -p "$name/one" "$name/mpi"
  (cd "$name/one" && "$program" "$@" --jobs 1 "${outputs[@]}" > out.log 2> err.log)
  (cd "$name/mpi" && mpi 3 "$@" --jobs 2 "${outputs[@]}" > out.log 2> err.log)
  diff <(kept "$name/one") <(kept "$name/mpi")
  diff "$name/one/err.log" "$name/mpi/err.log"
}

# A usage error is told once, by rank 0, with the usual status.
mpi 3 tournament --cycles x 2> usage.log &
ended 2
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
(cd whole && "$program" "${run[@]}" > out.log 2> err.log)
cd cut
mpi 3 "${run[@]}" > out.log 2> err.log &
launcher=$!
await r.txt 5
for pid in $(pgrep -P "$(pgrep -P $launcher)"); do
  if grep -qz '^OMPI_COMM_WORLD_RANK=2$' "/proc/$pid/environ"; then kill -9 "$pid"; fi
done
status=0 && wait $launcher || status=$?
[ $status != 0 ]
grep -q 'rank 2' err.log
[ -f r.txt.run.json ]
[ "$(grep -c '^ [AB] [0-9]' r.txt)" -lt 24 ]
mpi 2 resume --report r.txt > out.log 2> err.log
cd ..
diff <(kept whole) <(kept cut)
echo "all outputs equal"
