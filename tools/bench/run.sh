#!/bin/sh
# `make bench`: the game's figures beside their limits, printed as tables.
# Handler times on the null view (Google Benchmark), the balance lab's
# throughput, and start-up, memory and click-to-repaint of the real game
# against a minimal Qt window, offscreen and under Xvfb. Nothing of this
# runs inside `make test`.
# Usage: tools/bench/run.sh [build-folder]   (BENCH_RUNS, BENCH_GAMES tune it)
set -eu
BUILD=${1:-build}
JOBS=${JOBS:-2}
RUNS=${BENCH_RUNS:-15}
GAMES=${BENCH_GAMES:-3}

# What the benchmarks need beyond the game's own build.
tools/install-deps.sh build
missing=""
for p in libbenchmark-dev xvfb xauth; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing="$missing $p"
done
if [ -n "$missing" ]; then
  echo "Installing:$missing"
  sudo=""
  [ "$(id -u)" -ne 0 ] && sudo="sudo"
  $sudo env DEBIAN_FRONTEND=noninteractive apt-get update -qq
  $sudo env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing
fi

[ -f "$BUILD/CMakeCache.txt" ] || cmake -S . -B "$BUILD" -DCMAKE_BUILD_TYPE=Release
# A new configure picks up Google Benchmark if it was only just installed.
cmake -S . -B "$BUILD" >/dev/null
cmake --build "$BUILD" -j "$JOBS" --target amorra-lab amorra-handler-bench amorra-startbench amorra-guide-bench
type=$(sed -n 's/^CMAKE_BUILD_TYPE:[A-Z]*=//p' "$BUILD/CMakeCache.txt")
B="$BUILD/tools/bench"
status=0

echo
echo "== Amorra benchmarks ($type build, $(nproc) cores, $(uname -m)) =="
echo
echo "== 1. Click handlers without a screen (Google Benchmark) =="
"$B/amorra-handler-bench" --benchmark_min_time=0.2 || status=$?

echo
echo "== 2. Balance lab throughput (one core, null view) =="
"$BUILD/tools/lab/amorra-lab" --games 20000 --seed 1

echo
echo "== 2b. Quick start guide reader (one core) =="
taskset -c 0 "$B/amorra-guide-bench" || status=$?

echo
echo "== 3. Start-up, memory and click to repaint: offscreen =="
QT_QPA_PLATFORM=offscreen "$B/amorra-startbench" --game "$BUILD/src/app/amorra" \
  --minimal "$B/amorra-minimal-window" --minimal-sound "$B/amorra-minimal-sound-window" \
  --probe "$B/libamorra-probe.so" --runs "$RUNS" --games "$GAMES" --label offscreen || status=$?

echo
echo "== 4. Start-up, memory and click to repaint: Xvfb =="
xvfb-run -a -s "-screen 0 1280x1024x24" env QT_QPA_PLATFORM=xcb "$B/amorra-startbench" \
  --game "$BUILD/src/app/amorra" --minimal "$B/amorra-minimal-window" \
  --minimal-sound "$B/amorra-minimal-sound-window" --probe "$B/libamorra-probe.so" \
  --runs "$RUNS" --games "$GAMES" --label Xvfb || status=$?
exit $status
