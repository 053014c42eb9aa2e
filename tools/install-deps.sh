#!/bin/sh
# Installs the Debian packages Amorra needs, only those still missing.
# Usage: tools/install-deps.sh [build|test|play|package|lint|fuzz|shots]
set -eu

want="build-essential cmake pkg-config qt6-base-dev libasound2-dev libgl-dev"
case "${1:-build}" in
  # desktop-file-utils, appstream and lintian check the installed desktop
  # entry, metadata and package; dpkg-dev and file let the package test work
  # out its dependencies; the SVG plugin reads the scalable icon.
  test) want="$want libgtest-dev xvfb desktop-file-utils appstream lintian dpkg-dev file libqt6svg6" ;;
  # Native Wayland windows, and xdg-open for the help pages.
  play) want="$want qt6-wayland xdg-utils" ;;
  package) want="$want dpkg-dev file" ;;
  lint) want="$want clang-tidy cppcheck" ;;
  fuzz) want="$want clang libclang-rt-dev" ;;
  shots) want="$want xvfb imagemagick x11-apps" ;;
  *) ;; # build, and any area that needs no more than a build
esac

command -v dpkg-query >/dev/null 2>&1 || {
  echo "This helper knows Debian's packages only; install the equivalent of: $want" >&2
  exit 1
}

missing=""
for p in $want; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing="$missing $p"
done
[ -z "$missing" ] && exit 0

# A fresh Debian without sudo still has su and the root password.
as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  elif command -v sudo >/dev/null 2>&1; then
    sudo "$@"
  else
    echo "sudo is not installed: su asks for the root password." >&2
    su root -c "$*"
  fi
}

echo "Installing:$missing"
as_root env DEBIAN_FRONTEND=noninteractive apt-get update -qq
as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing
