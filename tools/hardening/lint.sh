#!/bin/sh
# clang-tidy and cppcheck over src/, with the committed configuration.
# Usage: tools/hardening/lint.sh [build-dir]
set -eu
cd "$(dirname "$0")/../.."
build=${1:-build-lint}
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Debug -DCMAKE_EXPORT_COMPILE_COMMANDS=ON -DAMORRA_TESTS=OFF >/dev/null
cmake --build "$build" -j 2 >/dev/null # generates the moc files clang-tidy needs

files=$(find src -name '*.cpp' | sort)
echo "clang-tidy on $(echo "$files" | wc -l) files"
# shellcheck disable=SC2086
run-clang-tidy -quiet -p "$build" $files >"$build/clang-tidy.log" 2>&1 || {
  grep -E 'warning:|error:' "$build/clang-tidy.log" | sort -u
  exit 1
}

echo "cppcheck"
cppcheck --quiet --error-exitcode=1 --enable=warning,performance,portability \
  --std=c++17 --language=c++ --inline-suppr \
  --suppressions-list=tools/hardening/cppcheck.supp \
  -I src src
echo "lint: clean"
