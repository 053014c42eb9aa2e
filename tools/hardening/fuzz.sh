#!/bin/sh
# Builds the libFuzzer targets with clang and runs each for a while.
# Usage: tools/hardening/fuzz.sh [seconds-per-target]   (default 60)
# A crash, a sanitizer report or an input slower than FUZZ_INPUT_SECONDS
# (default 10: a reader gone quadratic on a 64 KiB input takes far longer)
# leaves its input in build-fuzz/crashes/ and fails the run; copy it into
# tests/hardening/corpus/<target>/ so it becomes a regression test.
set -eu
cd "$(dirname "$0")/../.."
seconds=${1:-60}
input_seconds=${FUZZ_INPUT_SECONDS:-10}
# Any report stops the target at once; the log is checked for one besides.
export ASAN_OPTIONS=halt_on_error=1:abort_on_error=1:detect_leaks=1
export UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1
build=build-fuzz
CC=clang CXX=clang++ cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DAMORRA_FUZZ=ON >/dev/null
targets=$(sed -n 's/^ *amorra_fuzz(\([a-z_]*\) .*/\1/p' tests/hardening/CMakeLists.txt)
# shellcheck disable=SC2086
cmake --build "$build" -j 2 --target $targets >/dev/null
mkdir -p "$build/crashes"
status=0
passed=0
failed=0
for t in $targets; do
  seeds=$(sed -n "s/^ *amorra_fuzz($t .*CORPUS \([a-z ]*\)).*/\1/p" tests/hardening/CMakeLists.txt)
  work="$build/corpus/$t"
  mkdir -p "$work"
  for s in $seeds; do cp -r tests/hardening/corpus/"$s"/. "$work"/; done
  exe=$(find "$build" -type f -name "$t" -perm -u+x | head -n 1)
  printf '%-14s ' "$t"
  if "$exe" "$work" -max_total_time="$seconds" -max_len=65536 -timeout="$input_seconds" \
       -artifact_prefix="$build/crashes/$t-" -print_final_stats=1 >"$build/$t.log" 2>&1 &&
     ! grep -qE 'runtime error:|ERROR: [A-Za-z]*Sanitizer|ERROR: libFuzzer|SUMMARY: ' "$build/$t.log"; then
    grep -E 'stat::number_of_executed_units' "$build/$t.log" | awk '{print $2 " inputs, no crash"}'
    passed=$((passed + 1))
  else
    echo "FAILED (see $build/$t.log)"
    status=1
    failed=$((failed + 1))
  fi
done
echo "fuzz: $passed passed, $failed failed"
exit $status
