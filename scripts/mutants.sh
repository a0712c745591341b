#!/usr/bin/env bash
# Plants faults one at a time in a scratch copy of the sources, builds the copy
# and runs the tests against it, then prints the faults no test caught. A fault
# is one line of the list below: file, text found exactly once in it (or the
# n-th time, with file#n), and what replaces that text. Run by hand; it takes
# a while (one incremental build and one test run per fault).
#
#   scripts/mutants.sh [PATTERN]    only the faults whose line matches PATTERN
#
# MUTANT_DIR      scratch directory (default /tmp/quintline-mutants)
# MUTANT_TARGETS  build targets (default: everything but the windows)
# MUTANT_TEST     test command, run in the scratch build directory (default:
#                 ctest over every test built, bench signature included), e.g.
#   MUTANT_TARGETS="players_tests reference_tests" \
#   MUTANT_TEST="tests/players/players_tests && tests/reference/reference_tests" scripts/mutants.sh
# Exit status: 0 when every fault was caught, 1 otherwise.
set -euo pipefail
cd "$(dirname "$0")/.."

scratch=${MUTANT_DIR:-/tmp/quintline-mutants}
test_command=${MUTANT_TEST:-"ctest -j2 --timeout 600 -Q"}
targets=(${MUTANT_TARGETS:-all})
pattern=${1:-}
export CCACHE_BASEDIR=$scratch CCACHE_DIR=${CCACHE_DIR:-/work/.ccache}

faults=$(cat <<'EOF'
src/players/searchNode.h @@ if (childBeta > (child.four[sideRow(mover)] == 0 ? sureScore : winScore)) return false; @@
src/players/searchNode.h @@ if (v < childBeta) return false; @@ if (v < childBeta - 1) return false;
src/players/searchNode.h @@ return pos.census(side, 4) == 0 ? sureScore : winScore; @@ return pos.census(side, 4) <= 1 ? sureScore : winScore;
src/players/searchNode.h @@ const Score beaten = ties == Ties::takeLast ? seen - 1 : seen; @@ const Score beaten = ties == Ties::keepFirst ? seen - 1 : seen;
src/players/searchNode.h @@ return std::min(beaten, stop - 1); @@ return std::min(beaten, stop);
src/players/lastLine.h @@ .own >= stop; @@ .own > stop;
src/players/lastLine.h @@ return -windowValue<Rules>(s, childStep, childDepth, -stop, -(stop - 1)) >= stop; @@ return -windowValue<Rules>(s, childStep, childDepth, -stop, -(stop - 1)) > stop;
src/players/lastLine.h @@ for (int k = lineLength - moves[i]; k < lineLength; ++k) @@ for (int k = lineLength - moves[i] + 1; k < lineLength; ++k)
src/players/plainSearch.h @@ if (killer != nullptr && beta <= stop && candidates.contains(*killer)) { @@ if (killer != nullptr && candidates.contains(*killer)) {
src/players/plainSearch.h @@ return v < stop;  // a leaf reaching the threshold settles the node @@ return v <= stop;
src/players/plainSearch.h#2 @@ return v < stop; @@ return v <= stop;
src/players/plainSearch.h @@ if (beta <= stop) { @@ if (beta <= stop + 1) {
src/players/plainSearch.h @@ if (exact && v >= best) { @@ if (exact && v > best) {
src/players/plainSearch.h @@ if (v >= stop) break; @@ if (v > stop) break;
src/players/opponentModelSearch.h#1 @@ if (v >= stop) break; @@ if (v > stop) break;
src/players/opponentModelSearch.h#2 @@ if (v >= stop) break; @@ if (v > stop) break;
src/players/opponentModelSearch.h#3 @@ if (v >= stop) break; @@ if (v > stop) break;
src/players/opponentModelSearch.h @@ ownDone = bestOwn >= stop; @@ ownDone = bestOwn > stop;
src/players/opponentModelSearch.h @@ modelDone = bestModel >= stop; @@ modelDone = bestModel > stop;
src/players/opponentModelSearch.h @@ if (!ownDone && child.own > bestOwn) { @@ if (!ownDone && child.own >= bestOwn) {
src/players/opponentModelSearch.h @@ childLowerBound(floor, Ties::takeLast, stop)); @@ childLowerBound(floor, Ties::keepFirst, stop));
src/players/opponentModelLiteral.h @@ return moversScore >= winScore || (moversScore >= sureScore @@ return moversScore > winScore || (moversScore >= sureScore
src/players/opponentModelLiteral.h @@ (moversScore >= sureScore && pos.census(side, 4) == 0) @@ (moversScore > sureScore && pos.census(side, 4) == 0)
src/players/evaluation.h @@ result = base + fiveBonus + sureScore + extraFour * b4; @@ result = base + fiveBonus + sureScore;
src/players/leafScore.h @@ if (mine == 4) e.counts = (1 << ownFives) - (1 << ownFours); @@ if (mine == 4) e.counts = (1 << ownFives);
src/position/basicOpr.cpp @@ if (rows.own[id] > 0) --rows.ownCensus[rows.own[id]]; @@ --rows.ownCensus[rows.own[id]];
src/position/basicOpr.cpp @@ --rows.otherCensus[rows.other[id]]; @@
src/position/basicOpr.cpp @@ if (rows.own[id] - 1 > 0) ++rows.ownCensus[rows.own[id] - 1]; @@ ++rows.ownCensus[rows.own[id] - 1];
src/position/basicOpr.cpp @@ } else if (rows.own[id] == 1) { @@ } else if (rows.own[id] == 0) {
src/harness/credit.cpp @@ result == blackWon ? pairing.black : pairing.white; @@ result == whiteWon ? pairing.black : pairing.white;
src/harness/credit.cpp @@ if (results[n].letter == 'A') ++counts[n]; @@ if (results[n].letter == 'B') ++counts[n];
src/boardfile/numberForm.cpp @@ std::string out(1, value < 0 ? '-' : ' '); @@ std::string out(1, value <= 0 ? '-' : ' ');
src/boardfile/numberForm.cpp @@ while (!fracPart.empty() && fracPart.back() == '0') fracPart.pop_back(); @@
EOF
)

echo "scratch copy in $scratch"
rm -rf "$scratch/src"
mkdir -p "$scratch/src"
# -m: every file newer than the objects of an earlier run, so all of it is rebuilt
tar -c --exclude=./build --exclude=./.git . | tar -x -m -C "$scratch/src"
cmake -S "$scratch/src" -B "$scratch/build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
  -DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DQUINTLINE_WITH_GUI=OFF >/dev/null
cmake --build "$scratch/build" -j2 --target "${targets[@]}" >/dev/null
(cd "$scratch/build" && eval "$test_command" >/dev/null) ||
  { echo "the tests fail without any fault planted"; exit 2; }

survivors=()
count=0
while IFS= read -r fault; do
  [[ -z $fault || ( -n $pattern && $fault != *$pattern* ) ]] && continue
  count=$((count + 1))
  file_spec=${fault%% @@ *}
  rest=${fault#* @@ }
  original=${rest%% @@*}
  replacement=${rest#* @@}
  replacement=${replacement# }
  file=${file_spec%%#*}
  nth=
  [[ $file_spec == *#* ]] && nth=${file_spec##*#}
  target="$scratch/src/$file"
  cp "$target" "$target.orig"
  if ! ORIGINAL=$original REPLACEMENT=$replacement NTH=$nth python3 - "$target" <<'PY'
import os, sys
path, original, replacement = sys.argv[1], os.environ["ORIGINAL"], os.environ["REPLACEMENT"]
text = open(path).read()
found = text.count(original)
nth = int(os.environ["NTH"] or 0)
if (nth == 0 and found != 1) or found < nth:
    sys.exit(f"{path}: '{original}' occurs {found} times")
at = -1
for _ in range(max(nth, 1)):
    at = text.find(original, at + 1)
open(path, "w").write(text[:at] + replacement + text[at + len(original):])
PY
  then
    echo "[$count] NOT APPLIED: $fault"
    survivors+=("$fault (not applied)")
  elif ! cmake --build "$scratch/build" -j2 --target "${targets[@]}" >/dev/null 2>&1; then
    echo "[$count] caught by the build: $fault"
  elif (cd "$scratch/build" && eval "$test_command" >/dev/null 2>&1); then
    echo "[$count] SURVIVED: $fault"
    survivors+=("$fault")
  else
    echo "[$count] caught: $fault"
  fi
  # Rewritten, not moved back: a new time stamp makes the next build recompile it.
  cat "$target.orig" >"$target" && rm "$target.orig"
done <<<"$faults"

echo
echo "$count faults, ${#survivors[@]} survived"
for s in "${survivors[@]}"; do echo "  $s"; done
[[ ${#survivors[@]} -eq 0 ]]
