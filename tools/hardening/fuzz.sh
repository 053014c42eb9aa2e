#!/bin/sh
# Builds the libFuzzer targets with clang and runs each for a while.
# Usage: tools/hardening/fuzz.sh [seconds-per-target]   (default 60)
# A crash leaves its input in build-fuzz/crashes/ and fails the run; copy it
# into tests/hardening/corpus/<target>/ so it becomes a regression test.
set -eu
cd "$(dirname "$0")/../.."
seconds=${1:-60}
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
  if "$exe" "$work" -max_total_time="$seconds" -artifact_prefix="$build/crashes/$t-" \
       -print_final_stats=1 >"$build/$t.log" 2>&1; then
    grep -E 'stat::number_of_executed_units' "$build/$t.log" | awk '{print $2 " inputs, no crash"}'
    passed=$((passed + 1))
  else
    echo "CRASH (see $build/$t.log)"
    status=1
    failed=$((failed + 1))
  fi
done
echo "fuzz: $passed passed, $failed failed"
exit $status
