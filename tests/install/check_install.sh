#!/bin/sh
# Installs Amorra into a scratch prefix (cmake --install, or the .deb that
# make package builds, unpacked) and checks what a player and his desktop
# get: the files in their standard places, a valid desktop entry and
# AppStream data, and a launcher that starts the game in the player's own
# data folder.
#
# Usage: check_install.sh install|deb BUILD_DIR SOURCE_DIR GAME_BINARY VERSION
# Exits 77 (skipped) when the game binary has not been built.
set -u

mode=$1 build=$2 source=$3 game=$4 version=$5
app_id=io.github.amorra.Amorra

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
    "${AMORRA_CPACK:-cpack}" -G DEB --config "$build/CPackConfig.cmake" -B "$work/cpack" >"$work/cpack.log" 2>&1 ||
      { cat "$work/cpack.log"; echo "FAIL: cpack could not build the package"; exit 1; }
    deb=$(ls "$work"/cpack/amorra_*.deb 2>/dev/null | head -n 1)
    [ -n "$deb" ] || { cat "$work/cpack.log"; echo "FAIL: no amorra_*.deb was built"; exit 1; }
    field() { dpkg-deb -f "$deb" "$1"; }
    [ "$(field Package)" = amorra ] || fail "package name is '$(field Package)', not amorra"
    [ "$(field Version)" = "$version" ] || fail "package version is '$(field Version)', not $version"
    [ "$(field Section)" = games ] || fail "package section is '$(field Section)', not games"
    depends=$(field Depends)
    # Without these apt would install a game that cannot open a window or play a sound.
    for pkg in libqt6core6 libqt6gui6 libqt6widgets6 libasound2 qt6-qpa-plugins libc6; do
      case ", $depends," in
        *", $pkg "* | *", $pkg,"*) ;;
        *) fail "the package does not depend on $pkg (Depends: $depends)" ;;
      esac
    done
    dpkg-deb -c "$deb" >"$work/contents"
    outside=$(awk '{print $6}' "$work/contents" | grep -v '^\./usr/' | grep -v '^\./$')
    [ -z "$outside" ] || fail "the package puts files outside /usr: $outside"
    loose=$(awk '$2 != "root/root" || ($1 ~ /^d/ && $1 != "drwxr-xr-x") {print $1, $2, $6}' "$work/contents")
    [ -z "$loose" ] || fail "files not owned by root or folders not 0755 in the package: $loose"
    dpkg-deb -x "$deb" "$work/root" || { echo "FAIL: dpkg-deb -x"; exit 1; }
    prefix=$work/root/usr
    ;;
  *)
    echo "usage: $0 install|deb BUILD_DIR SOURCE_DIR GAME_BINARY VERSION"
    exit 2
    ;;
esac

# --- Layout ------------------------------------------------------------------
launcher=$prefix/bin/amorra
installed_game=$prefix/libexec/amorra/amorra-game
share=$prefix/share
data=$share/amorra
[ -f "$launcher" ] && [ -x "$launcher" ] || fail "no executable launcher at bin/amorra"
[ -f "$installed_game" ] && [ -x "$installed_game" ] || fail "no executable game at libexec/amorra/amorra-game"

# What the game loads: her eleven pictures, the four animations, the guide, the sounds.
i=1
while [ $i -le 11 ]; do
  [ -s "$data/girl$i.bmp" ] || fail "share/amorra/girl$i.bmp is missing"
  i=$((i + 1))
done
for f in couple_kiss.gif hearts.gif champ.gif champlbl.gif qsguide.rtf; do
  [ -s "$data/$f" ] || fail "share/amorra/$f is missing"
done
ls "$data"/sounds/*.wav >/dev/null 2>&1 || fail "share/amorra/sounds holds no .wav"

# Every run-time asset of the source tree arrives unchanged.
(cd "$source/assets" && find . -type f \( -name 'girl*.bmp' -o -name '*.gif' -o -name qsguide.rtf \
  -o -path './sounds/*' -o -path './pictures/*' -o -path './help/*' \) ! -path './icons/*') |
  while IFS= read -r f; do
    cmp -s "$source/assets/$f" "$data/$f" || echo "share/amorra/${f#./} is missing or differs from assets/${f#./}"
  done >"$work/asset-diff"
[ -s "$work/asset-diff" ] && fail "$(cat "$work/asset-diff")"
# The game's own window icon when the theme does not know amorra.
cmp -s "$source/assets/icons/amorra.svg" "$data/icons/amorra.svg" || fail "share/amorra/icons/amorra.svg is missing"
[ -s "$share/doc/amorra/copyright" ] || fail "no licence in share/doc/amorra/copyright"
gzip -dc "$share/doc/amorra/changelog.gz" 2>/dev/null | head -n 1 | grep -q "^amorra ($version)" ||
  fail "share/doc/amorra/changelog.gz does not start with the entry for $version"

# Icons: the PNG in each hicolor folder must have that size, or the desktop scales it badly.
for size in 16 32 48 64 128 256; do
  png=$share/icons/hicolor/${size}x${size}/apps/amorra.png
  if [ ! -f "$png" ]; then
    fail "no icon ${size}x${size}"
    continue
  fi
  head=$(od -An -v -tx1 -N 24 "$png" | tr -d ' \n')
  case $head in 89504e470d0a1a0a*) ;; *) fail "${size}x${size}/apps/amorra.png is not a PNG" ;; esac
  w=$((0x$(printf '%s' "$head" | cut -c33-40)))
  h=$((0x$(printf '%s' "$head" | cut -c41-48)))
  [ "$w" = "$size" ] && [ "$h" = "$size" ] || fail "${size}x${size}/apps/amorra.png is ${w}x${h}"
done
svg=$share/icons/hicolor/scalable/apps/amorra.svg
[ -f "$svg" ] && grep -q '<svg' "$svg" || fail "no scalable icon hicolor/scalable/apps/amorra.svg"

# Desktop entry.
desktop=$share/applications/$app_id.desktop
if [ -f "$desktop" ]; then
  need_tool desktop-file-validate
  desktop-file-validate "$desktop" >"$work/dfv" 2>&1 || fail "desktop-file-validate: $(cat "$work/dfv")"
  grep -qx 'Exec=amorra' "$desktop" || fail "the desktop entry does not start the launcher (Exec=amorra)"
  grep -qx 'Icon=amorra' "$desktop" || fail "the desktop entry does not use the amorra icon"
  grep -q '^Categories=.*Game;' "$desktop" || fail "the desktop entry is not in the Game menu"
else
  fail "no desktop entry share/applications/$app_id.desktop"
fi

# AppStream metadata, which software centres show.
metainfo=$share/metainfo/$app_id.metainfo.xml
if [ -f "$metainfo" ]; then
  if command -v appstreamcli >/dev/null 2>&1; then
    appstreamcli validate --no-net "$metainfo" >"$work/asv" 2>&1 || fail "appstreamcli validate: $(cat "$work/asv")"
  fi
  grep -q "<id>$app_id</id>" "$metainfo" || fail "the metainfo id is not $app_id"
  grep -q "<launchable type=\"desktop-id\">$app_id.desktop</launchable>" "$metainfo" ||
    fail "the metainfo does not point at the desktop entry"
  # A release bump without its release note would leave software centres on the old version.
  grep -q "<release version=\"$version\"" "$metainfo" || fail "the metainfo has no release $version"
else
  fail "no AppStream metadata share/metainfo/$app_id.metainfo.xml"
fi

man=$share/man/man6/amorra.6.gz
[ -f "$man" ] && gzip -dc "$man" | grep -q '^\.TH AMORRA 6' || fail "no man page share/man/man6/amorra.6.gz"

# --- Launcher ----------------------------------------------------------------
out=$("$launcher" --version 2>&1) && [ "$out" = "amorra $version" ] ||
  fail "amorra --version printed '$out', not 'amorra $version'"
out=$(XDG_DATA_HOME=/srv/players "$launcher" --help 2>&1) || fail "amorra --help failed"
case $out in *Usage:*"/srv/players/amorra"*) ;; *) fail "amorra --help does not name the data folder: $out" ;; esac
"$launcher" --level=7 >/dev/null 2>"$work/err"
rc=$?
[ $rc -eq 2 ] && grep -q "unknown option '--level=7'" "$work/err" ||
  fail "an unknown option gave exit $rc and '$(cat "$work/err")'"

# A stand-in for the game reports where it was started and with what.
fake_dir=$work/fake
mkdir -p "$fake_dir"
fake=$fake_dir/amorra-game
cat >"$fake" <<'EOF'
#!/bin/sh
{ pwd; echo "$#"; } >"$AMORRA_TEST_REPORT"
EOF
chmod +x "$fake"
report=$work/report
home=$work/home
scratch=$work/scratch
mkdir -p "$home" "$scratch"
run_fake() { # extra environment assignments...
  rm -f "$report"
  (cd "$scratch" && env HOME="$home" AMORRA_GAME_BINARY="$fake" AMORRA_TEST_REPORT="$report" "$@" \
    "$launcher" >"$work/out" 2>&1)
}

# First start: the folder is made and seeded, so the guide opens once.
folder=$work/xdg/amorra
run_fake XDG_DATA_HOME="$work/xdg" || fail "the first start failed: $(cat "$work/out")"
[ -d "$folder" ] || fail "the first start did not make \$XDG_DATA_HOME/amorra"
[ "$(bytes "$folder/tuteshow" 2>/dev/null)" = "01 00" ] ||
  fail "tuteshow after the first start holds '$(bytes "$folder/tuteshow" 2>/dev/null)', not 01 00"
cmp -s "$folder/qsguide.rtf" "$data/qsguide.rtf" || fail "the first start did not copy the installed qsguide.rtf"
[ "$(sed -n 1p "$report" 2>/dev/null)" = "$folder" ] ||
  fail "the game started in '$(sed -n 1p "$report" 2>/dev/null)', not in $folder"
[ "$(sed -n 2p "$report" 2>/dev/null)" = 0 ] || fail "the game was given arguments"
[ -z "$(ls -A "$scratch")" ] || fail "files landed in the folder amorra was started from: $(ls -A "$scratch")"
ls -A "$folder" | grep -q '\.new$' && fail "a temporary file was left in the data folder"

# After "Don't show this again" the game wrote 0; the launcher must not bring the guide back,
# nor replace the player's own guide.
printf '\000\000' >"$folder/tuteshow"
echo "my notes" >"$folder/qsguide.rtf"
run_fake XDG_DATA_HOME="$work/xdg" || fail "the second start failed: $(cat "$work/out")"
[ "$(bytes "$folder/tuteshow")" = "00 00" ] || fail "the second start reset tuteshow to $(bytes "$folder/tuteshow")"
[ "$(cat "$folder/qsguide.rtf")" = "my notes" ] || fail "the second start replaced the player's qsguide.rtf"

# No XDG_DATA_HOME, or a relative one (invalid): ~/.local/share/amorra.
for xdg in "" "relative/data"; do
  rm -rf "$home/.local"
  run_fake XDG_DATA_HOME="$xdg" || fail "start with XDG_DATA_HOME='$xdg' failed: $(cat "$work/out")"
  [ "$(sed -n 1p "$report" 2>/dev/null)" = "$home/.local/share/amorra" ] ||
    fail "with XDG_DATA_HOME='$xdg' the game started in '$(sed -n 1p "$report" 2>/dev/null)'"
  [ -e "$scratch/relative" ] && fail "a relative XDG_DATA_HOME made a folder where amorra was started"
done

# A data folder that cannot be made: a clear message, and the game is not started.
: >"$work/blocker"
run_fake XDG_DATA_HOME="$work/blocker"
rc=$?
[ $rc -eq 1 ] && grep -q "cannot create your data folder $work/blocker/amorra" "$work/out" ||
  fail "an impossible data folder gave exit $rc and '$(cat "$work/out")'"
[ -e "$report" ] && fail "the game was started without a data folder"

# A developer build: the game's own assets folder comes before the installed one.
mkdir -p "$fake_dir/assets"
echo "guide of the build tree" >"$fake_dir/assets/qsguide.rtf"
run_fake XDG_DATA_HOME="$work/dev" || fail "the build-tree start failed: $(cat "$work/out")"
cmp -s "$work/dev/amorra/qsguide.rtf" "$fake_dir/assets/qsguide.rtf" ||
  fail "the build-tree start did not take qsguide.rtf from beside the game"

# The real game, reached through a symlink as from /usr/games: it must find itself and keep
# running (a missing library or plugin ends it at once).
mkdir -p "$work/games"
ln -s "$launcher" "$work/games/amorra"
(cd "$scratch" && env HOME="$home" XDG_DATA_HOME="$work/real" QT_QPA_PLATFORM=offscreen \
  timeout -k 2 4 "$work/games/amorra" >"$work/out" 2>&1)
rc=$?
[ $rc -eq 124 ] || fail "the installed game ended after less than 4 s (exit $rc): $(cat "$work/out")"
[ -z "$(ls -A "$scratch")" ] || fail "the game wrote files where it was started from: $(ls -A "$scratch")"

if [ $failures -gt 0 ]; then
  echo "$failures check(s) failed"
  exit 1
fi
echo "all checks passed ($mode)"
