#!/bin/sh
# Installs the Debian packages Amorra needs, only those still missing.
# Usage: tools/install-deps.sh [build|test|play|package|lint|fuzz|shots]
set -eu

want="build-essential cmake pkg-config qt6-base-dev qt6-multimedia-dev libgl-dev libqt6svg6 qt6-image-formats-plugins"
case "${1:-build}" in
  test) want="$want libgtest-dev xvfb desktop-file-utils appstream" ;;
  play) want="$want gstreamer1.0-plugins-good gstreamer1.0-pulseaudio" ;;
  package) want="$want dpkg-dev file" ;;
  lint) want="$want clang-tidy cppcheck" ;;
  fuzz) want="$want clang libclang-rt-dev" ;;
  shots) want="$want xvfb imagemagick x11-apps" ;;
esac

missing=""
for p in $want; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing="$missing $p"
done
[ -z "$missing" ] && exit 0

echo "Installing:$missing"
sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends $missing
