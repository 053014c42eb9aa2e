#!/bin/sh
# Regenerates every picture, animation and sound of the game under assets/ from the
# scripts beside this file. The results are committed, so building the game needs none
# of the tools used here.
# Needs: python3, rsvg-convert (librsvg2-bin), convert (imagemagick), sox, espeak-ng,
# and the fonts-dejavu-core and fonts-urw-base35 fonts that the lettering uses.
# Usage: tools/assets/make-assets.sh [pictures|animations|sounds]   (all when no argument is given;
# pictures include the animations)
set -eu

here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
out="$root/assets"
what="${1:-all}"

tools="python3 rsvg-convert convert"
case "$what" in all | sounds) tools="$tools sox espeak-ng" ;; esac
for tool in $tools; do
    if ! command -v "$tool" >/dev/null 2>&1; then
        echo "make-assets: $tool is missing (apt-get install librsvg2-bin imagemagick sox espeak-ng)" >&2
        exit 1
    fi
done
if convert -version 2>/dev/null | grep -q ImageMagick; then :; else
    echo "make-assets: convert is not ImageMagick's" >&2
    exit 1
fi

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT INT TERM

# PNGs without time stamps, so that regenerating changes no byte that did not change.
png() { convert "$1" -strip -define png:exclude-chunks=date,time,tIME "PNG32:$2"; }

# The looping animations: frames rendered one by one, one shared palette per
# animation so that colours do not flicker from frame to frame, looping forever.
animations() {
    mkdir -p "$work/anims"
    python3 "$here/art/anims.py" "$work/anims"
    while read -r name w h n delay; do
        for f in "$work/anims/$name"/f*.svg; do
            rsvg-convert -w "$w" -h "$h" "$f" -o "${f%.svg}.png"
        done
        convert "$work/anims/$name"/f*.png -append +dither -colors 255 -unique-colors \
            "$work/$name-palette.gif"
        convert -delay "$delay" -loop 0 "$work/anims/$name"/f*.png -alpha off +dither \
            -remap "$work/$name-palette.gif" -layers OptimizeTransparency "$out/$name.gif"
    done < "$work/anims/anims.txt"
}

pictures() {
    mkdir -p "$out/pictures" "$out/icons" "$work/girls" "$work/stills" "$work/anims"

    # her eleven portraits, 24-bit BMP; each still picture also drawn twice as
    # large as pictures/NAME@2x.png, which the game shows on screens of two
    # device pixels to a pixel (200% scaling)
    python3 "$here/art/girls.py" "$work/girls"
    for i in 1 2 3 4 5 6 7 8 9 10 11; do
        rsvg-convert -w 105 -h 113 "$work/girls/girl$i.svg" -o "$work/girl$i.png"
        convert "$work/girl$i.png" -background white -alpha remove -alpha off -type TrueColor \
            "BMP3:$out/girl$i.bmp"
        rsvg-convert -w 210 -h 226 "$work/girls/girl$i.svg" -o "$work/girl$i@2x.png"
        convert "$work/girl$i@2x.png" -background white -alpha remove "$work/girl$i@2x-flat.png"
        png "$work/girl$i@2x-flat.png" "$out/pictures/girl$i@2x.png"
    done

    # the still pictures; the setup screen's are stored as their pixels
    # (NAME.argb), as they are read on the way to the game's first window
    python3 "$here/art/pictures.py" "$work/stills"
    while read -r name w h; do
        rsvg-convert -w "$w" -h "$h" "$work/stills/$name.svg" -o "$work/$name.png"
        png "$work/$name.png" "$out/pictures/$name.png"
        rsvg-convert -w "$((w * 2))" -h "$((h * 2))" "$work/stills/$name.svg" -o "$work/$name@2x.png"
        png "$work/$name@2x.png" "$out/pictures/$name@2x.png"
        case $name in
            setup_*) python3 "$here/raw_picture.py" "$out/pictures/$name.png" "$out/pictures/$name@2x.png" ;;
        esac
    done < "$work/stills/stills.txt"

    # the application icon: the SVG itself and the usual hicolor sizes
    cp "$work/stills/amorra.svg" "$out/icons/amorra.svg"
    for s in 16 32 48 64 128 256; do
        rsvg-convert -w "$s" -h "$s" "$work/stills/amorra.svg" -o "$work/icon$s.png"
        png "$work/icon$s.png" "$out/icons/amorra-$s.png"
    done

    animations
}

sounds() {
    mkdir -p "$out/sounds"
    python3 "$here/sound/make_sounds.py" "$out/sounds" "$work"
}

case "$what" in
    pictures) pictures ;;
    animations) animations ;;
    sounds) sounds ;;
    all) pictures; sounds ;;
    *) echo "usage: $0 [pictures|animations|sounds]" >&2; exit 2 ;;
esac
# What a player would notice: loudness, clicks, look-alike portraits, still animations...
python3 "$here/check_assets.py" "$out"
echo "make-assets: done ($(du -sk "$out" | cut -f1) KB in assets/)"
