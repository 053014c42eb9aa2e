#!/bin/sh
# `make bench`: the game's figures beside their targets, with the machine's
# load while they were taken. Handler times on the null view (Google
# Benchmark), the balance lab's throughput, then the game as a player gets
# it: installed into a scratch prefix and started by its desktop entry's
# command, against a bare Qt window, under Xvfb (start-up, memory, every
# click timed from outside and inside, idle cost), and its memory on a
# real Wayland compositor (weston, headless, with its X server, as GNOME
# has one) against the same game on X11.
# Nothing of this runs inside `make test`.
# Usage: tools/bench/run.sh [build-folder]
#   BENCH_RUNS (starts of each program, 21), BENCH_GAMES (whole games, 3),
#   BENCH_IDLE_SECONDS (each idle spell, 30) tune it.
set -eu
BUILD=${1:-build}
JOBS=${JOBS:-2}
RUNS=${BENCH_RUNS:-21}
GAMES=${BENCH_GAMES:-3}
IDLE=${BENCH_IDLE_SECONDS:-30}

# What the benchmarks need beyond the game's own build.
tools/install-deps.sh build
missing=""
for p in libbenchmark-dev xvfb xauth libxtst-dev libxdamage-dev weston xwayland qt6-wayland; do
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
# A new configure picks up what was only just installed.
cmake -S . -B "$BUILD" >/dev/null
cmake --build "$BUILD" -j "$JOBS" --target amorra-lab amorra-handler-bench amorra-startbench amorra-guide-bench
type=$(sed -n 's/^CMAKE_BUILD_TYPE:[A-Z]*=//p' "$BUILD/CMakeCache.txt")
B="$BUILD/tools/bench"
status=0
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT INT TERM

load() { cut -d' ' -f1-3 /proc/loadavg; }

echo
echo "== Amorra benchmarks ($type build, $(nproc) cores, $(uname -m)) =="
echo
echo "== 1. Click handlers without a screen (Google Benchmark; target: every handler under 50 us) =="
echo "Load before: $(load)"
"$B/amorra-handler-bench" --benchmark_min_time=0.2 || status=$?
echo "Load after: $(load)"

echo
echo "== 2. Balance lab throughput (one core, null view; target: no slower than the previous round's build, run alternately) =="
echo "Load before: $(load)"
"$BUILD/tools/lab/amorra-lab" --games 20000 --seed 1
echo "Load after: $(load)"

echo
echo "== 2b. Quick start guide reader (one core) =="
taskset -c 0 "$B/amorra-guide-bench" || status=$?

# What a player starts: the installed tree and its desktop entry's command,
# found as the desktop finds it (on the PATH of the prefix).
prefix="$scratch/prefix"
cmake --install "$BUILD" --prefix "$prefix" >/dev/null
desktop=$(ls "$prefix"/share/applications/*.desktop | head -n 1)
command=$(sed -n 's/^Exec=//p' "$desktop" | head -n 1)
command=${command%% *}
entry=""
case $command in
  /*) entry=$command ;;
  *) for dir in games bin; do
       if [ -x "$prefix/$dir/$command" ]; then entry="$prefix/$dir/$command"; break; fi
     done ;;
esac
[ -n "$entry" ] || { echo "bench: the desktop entry's command '$command' is not installed" >&2; exit 1; }

echo
echo "== 3. The game as installed, on X11 (Xvfb): start-up, memory, clicks, idle =="
echo "Desktop entry: $desktop, Exec=$command -> $entry"
xvfb-run -a -s "-screen 0 1280x1024x24" env QT_QPA_PLATFORM=xcb "$B/amorra-startbench" --x11 \
  --game "$BUILD/src/app/amorra" --entry "$entry" --minimal "$B/amorra-minimal-window" \
  --minimal-sound "$B/amorra-minimal-sound-window" --probe "$B/libamorra-probe.so" --guide assets/qsguide.rtf --runs "$RUNS" --games "$GAMES" \
  --idle-seconds "$IDLE" --label X11 >"$scratch/x11.txt" || status=$?
cat "$scratch/x11.txt"

echo
echo "== 4. The same game on a Wayland desktop (weston, headless): memory against X11 (target: within 1.20x) =="
runtime="$scratch/runtime"
mkdir -m 700 "$runtime"
XDG_RUNTIME_DIR=$runtime weston --backend=headless-backend.so --socket=amorra-bench --idle-time=0 --xwayland \
  >"$scratch/weston.log" 2>&1 &
weston=$!
for _ in 1 2 3 4 5 6 7 8 9 10; do [ -S "$runtime/amorra-bench" ] && break; sleep 0.5; done
xdisplay=$(sed -n 's/.*xserver listening on display \(:[0-9]*\).*/\1/p' "$scratch/weston.log" | head -n 1)
# Only memory is compared here: weston draws with a software GL of its own,
# so its times say little about a real desktop.
wayland_game() { # label, then the environment that differs
  label=$1
  shift
  env -u QT_QPA_PLATFORM -u DISPLAY XDG_RUNTIME_DIR="$runtime" XDG_SESSION_TYPE=wayland WAYLAND_DISPLAY=amorra-bench \
    "$@" "$B/amorra-startbench" --game "$BUILD/src/app/amorra" --minimal "$B/amorra-minimal-window" \
    --probe "$B/libamorra-probe.so" --guide assets/qsguide.rtf --runs 3 --games 1 --label "$label" \
    >"$scratch/$label.txt" || status=$?
}
game_peak_kb() { sed -n 's/^summary .*game_peak_kb=\([0-9.]*\).*/\1/p' "$scratch/$1.txt"; }
if [ -S "$runtime/amorra-bench" ]; then
  # As a player starts it in a Wayland session, with the compositor's X
  # server there; then with Qt's Wayland platform asked for by name, which
  # on a compositor that draws no frames holds Qt's EGL stack.
  wayland_game wayland-desktop ${xdisplay:+DISPLAY=$xdisplay}
  wayland_game wayland-named QT_QPA_PLATFORM=wayland
  x11=$(game_peak_kb x11)
  desktop=$(game_peak_kb wayland-desktop)
  native=$(game_peak_kb wayland-named)
  sed -n '/^Machine load/p' "$scratch/wayland-desktop.txt"
  [ -n "$xdisplay" ] || echo "weston started no X server (is xwayland installed?): the game ran on Wayland itself"
  if [ -n "$x11" ] && [ -n "$desktop" ] && [ -n "$native" ]; then
    awk -v w="$desktop" -v n="$native" -v x="$x11" 'BEGIN {
      printf "Peak memory after a won game, guide and Top 20 (median)\n"
      printf "  X11 (section 3)                                %5.1f MB\n", x / 1024
      printf "  Wayland session, as the desktop starts it      %5.1f MB\n", w / 1024
      printf "  Wayland session, QT_QPA_PLATFORM=wayland       %5.1f MB   (Qt 6.4 loads EGL to draw frames)\n", n / 1024
      r = w / x
      printf "\nWayland / X11, game peak memory: %.1f MB / %.1f MB = %.2fx (target <= 1.20x: %s)\n", w / 1024, x / 1024, r, r <= 1.2 ? "within" : "OVER" }'
  else
    echo "a Wayland run gave no figure (see $scratch/wayland-desktop.txt and wayland-named.txt)"
    status=1
  fi
else
  echo "weston did not start (see $scratch/weston.log); no Wayland figures"
fi
kill "$weston" 2>/dev/null || true
wait "$weston" 2>/dev/null || true
exit $status
