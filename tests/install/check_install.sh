#!/bin/sh
# Installs Amorra into a scratch prefix (cmake --install, or the .deb that
# make package builds, unpacked) and checks what a player and his desktop
# get: the files of assets/files.txt in their places and nothing else, a
# valid desktop entry and AppStream data, a package lintian finds nothing
# in, and a game that starts in the player's own data folder.
#
# Usage: check_install.sh install|deb BUILD_DIR SOURCE_DIR GAME_BINARY VERSION
# Exits 77 (skipped) when the game binary has not been built.
set -u

mode=$1 build=$2 source=$3 game=$4 version=$5
app_id=io.github.amorra.amorra

if [ -z "$game" ] || [ ! -x "$game" ]; then
  echo "SKIP: the game binary is not built, nothing to install"
  exit 77
fi

failures=0
fail() {
  echo "FAIL: $*"
  failures=$((failures + 1))
}
need_tool() {
  command -v "$1" >/dev/null 2>&1 || { echo "FAIL: $1 is missing; run tools/install-deps.sh test"; exit 1; }
}
bytes() { od -An -v -tx1 -- "$1" | tr -s ' \n' '  ' | sed 's/^ //; s/ $//'; }

work=$(mktemp -d "${TMPDIR:-/tmp}/amorra-$mode.XXXXXX") || exit 1
trap 'chmod -R u+w "$work" 2>/dev/null; rm -rf "$work"' EXIT

# --- Install -----------------------------------------------------------------
case $mode in
  install)
    prefix=$work/prefix
    "${AMORRA_CMAKE:-cmake}" --install "$build" --prefix "$prefix" >"$work/install.log" 2>&1 ||
      { cat "$work/install.log"; echo "FAIL: cmake --install"; exit 1; }
    ;;
  deb)
    need_tool dpkg-deb
    need_tool lintian
    "${AMORRA_CPACK:-cpack}" -G DEB --config "$build/CPackConfig.cmake" -B "$work/cpack" >"$work/cpack.log" 2>&1 ||
      { cat "$work/cpack.log"; echo "FAIL: cpack could not build the package"; exit 1; }
    deb=$(ls "$work"/cpack/amorra_*.deb 2>/dev/null | head -n 1)
    [ -n "$deb" ] || { cat "$work/cpack.log"; echo "FAIL: no amorra_*.deb was built"; exit 1; }
    field() { dpkg-deb -f "$deb" "$1"; }
    [ "$(field Version)" = "$version" ] || fail "package version is '$(field Version)', not $version"
    depends=$(field Depends)
    # Without these apt would install a game that cannot open a window or play a sound.
    for pkg in libqt6gui6 libqt6widgets6 libasound2 qt6-qpa-plugins; do
      case ", $depends," in
        *", $pkg "* | *", $pkg,"*) ;;
        *) fail "the package does not depend on $pkg (Depends: $depends)" ;;
      esac
    done
    # Policy, permissions, hardening, copyright, changelog, man page, compression...
    lintian --pedantic --display-info --tag-display-limit 0 "$deb" 2>&1 | grep '^[EWIPX]:' >"$work/lintian"
    [ -s "$work/lintian" ] && fail "lintian --pedantic: $(cat "$work/lintian")"
    dpkg-deb -x "$deb" "$work/root" || { echo "FAIL: dpkg-deb -x"; exit 1; }
    prefix=$work/root/usr
    ;;
  *)
    echo "usage: $0 install|deb BUILD_DIR SOURCE_DIR GAME_BINARY VERSION"
    exit 2
    ;;
esac

# --- Layout ------------------------------------------------------------------
installed=$prefix/games/amorra
share=$prefix/share
data=$share/games/amorra
[ -f "$installed" ] && [ -x "$installed" ] || fail "no executable game at games/amorra"

# The game's files, from the same list the build installs from and the asset test opens.
: >"$work/listed"
grep -v '^#' "$source/assets/files.txt" | while read -r file kind size; do
  [ -n "$file" ] || continue
  case $kind in
    theme) ;;
    *)
      echo "$file" >>"$work/listed"
      cmp -s "$source/assets/$file" "$data/$file" || echo "share/games/amorra/$file is missing or differs"
      ;;
  esac
  case $kind/$file in
    icon/* | theme/*.png) cmp -s "$source/assets/$file" "$share/icons/hicolor/$size/apps/amorra.png" ||
      echo "icons/hicolor/$size/apps/amorra.png is missing or differs from assets/$file" ;;
    theme/*.svg) cmp -s "$source/assets/$file" "$share/icons/hicolor/scalable/apps/amorra.svg" ||
      echo "icons/hicolor/scalable/apps/amorra.svg is missing" ;;
  esac
done >"$work/differences"
[ -s "$work/differences" ] && fail "$(cat "$work/differences")"
sort -o "$work/listed" "$work/listed"
(cd "$data" && find . -type f | sed 's|^\./||' | sort) | comm -23 - "$work/listed" >"$work/extra"
[ -s "$work/extra" ] && fail "installed but not on assets/files.txt: $(cat "$work/extra")"

[ -s "$share/doc/amorra/copyright" ] || fail "no share/doc/amorra/copyright"
gzip -dc "$share/doc/amorra/changelog.gz" 2>/dev/null | head -n 1 | grep -q "^amorra ($version)" ||
  fail "share/doc/amorra/changelog.gz does not start with the entry for $version"
gzip -dc "$share/man/man6/amorra.6.gz" 2>/dev/null | grep -q '^\.TH AMORRA 6' || fail "no man page man6/amorra.6.gz"

desktop=$share/applications/$app_id.desktop
need_tool desktop-file-validate
desktop-file-validate "$desktop" >"$work/dfv" 2>&1 || fail "desktop-file-validate: $(cat "$work/dfv")"
case $mode in install) exec_path=$prefix/games/amorra ;; *) exec_path=/usr/games/amorra ;; esac
grep -qx "Exec=$exec_path" "$desktop" && grep -qx 'Icon=amorra' "$desktop" ||
  fail "the desktop entry does not start $exec_path with its icon"

metainfo=$share/metainfo/$app_id.metainfo.xml
need_tool appstreamcli
appstreamcli validate --pedantic --no-net "$metainfo" >"$work/asv" 2>&1 || fail "appstreamcli validate: $(cat "$work/asv")"
grep -q '<binary>amorra</binary>' "$metainfo" || fail "the metainfo does not name the amorra command"
# A release bump without its release note would leave software centres on the old version.
grep -q "<release version=\"$version\"" "$metainfo" || fail "the metainfo has no release $version"

# --- The command -------------------------------------------------------------
out=$("$installed" --version 2>&1) && [ "$out" = "amorra $version" ] ||
  fail "amorra --version printed '$out', not 'amorra $version'"
out=$(XDG_DATA_HOME=/srv/players "$installed" --help 2>&1) || fail "amorra --help failed"
case $out in *Usage:*"/srv/players/amorra"*) ;; *) fail "amorra --help does not name the data folder: $out" ;; esac
"$installed" --level=7 >/dev/null 2>"$work/err"
rc=$?
[ $rc -eq 2 ] && grep -q "unknown option '--level=7'" "$work/err" ||
  fail "an unknown option gave exit $rc and '$(cat "$work/err")'"
env -u HOME -u XDG_DATA_HOME "$installed" >/dev/null 2>"$work/err"
rc=$?
[ $rc -eq 1 ] && grep -q "neither XDG_DATA_HOME nor HOME is set" "$work/err" ||
  fail "without HOME the game gave exit $rc and '$(cat "$work/err")'"

# The first start, from elsewhere: the folder is made and seeded, the game runs inside
# it, finds its files (a missing one is a warning on stderr) and keeps running.
scratch=$work/scratch
folder=$work/xdg/amorra
mkdir -p "$scratch" "$work/run"
chmod 700 "$work/run"
(cd "$scratch" && exec env HOME="$work/home" XDG_DATA_HOME="$work/xdg" XDG_RUNTIME_DIR="$work/run" QT_QPA_PLATFORM=offscreen \
  "$installed" >"$work/out" 2>&1) &
pid=$!
tries=0
until [ "$(readlink "/proc/$pid/cwd" 2>/dev/null)" = "$folder" ] || [ $tries -ge 100 ]; do
  sleep 0.1
  tries=$((tries + 1))
done
sleep 2
if kill "$pid" 2>/dev/null; then
  wait "$pid" 2>/dev/null
else
  fail "the installed game ended at once: $(cat "$work/out")"
fi
[ $tries -lt 100 ] || fail "the game did not run in $folder"
[ "$(bytes "$folder/tuteshow" 2>/dev/null)" = "01 00" ] ||
  fail "tuteshow after the first start holds '$(bytes "$folder/tuteshow" 2>/dev/null)', not 01 00"
cmp -s "$folder/qsguide.rtf" "$data/qsguide.rtf" || fail "the first start did not copy the installed qsguide.rtf"
[ -z "$(ls -A "$scratch")" ] || fail "files landed where the game was started from: $(ls -A "$scratch")"
[ -s "$work/out" ] && fail "the game's start printed: $(cat "$work/out")"

if [ $failures -gt 0 ]; then
  echo "$failures check(s) failed"
  exit 1
fi
echo "all checks passed ($mode)"
