#!/usr/bin/env bash
# Draws the PNG icons and the cursor bitmaps of the program from their SVG sources (needs rsvg-convert and, for the
# cursors, ImageMagick). Run it after changing a source.
# usage: render-icons.sh [BUILD]: with a build folder (build/release) the picture of the Woodcock diagram, too, which the
# library itself draws.
set -euo pipefail
if [ $# -gt 0 ]; then
    cmake --build "$1" --target woodcock_picture
    picture=$(find "$(realpath "$1")" -name woodcock_picture -type f | head -n 1)
fi
cd "$(dirname "$0")/../app/resources"
for source in svg/*.svg; do
    name=$(basename "$source" .svg)
    size=16
    [ "$name" = gkanalyser ] && size=64
    rsvg-convert -w "$size" -h "$size" "$source" -o "png/$name.png"
    rsvg-convert -w $((2 * size)) -h $((2 * size)) "$source" -o "png/$name@2x.png"
done

# Two colours each: black is drawn, and in the mask black is covered. The mask is one pixel wider all round, which
# gives the cross a white edge on dark charts.
for source in svg/cursors/*.svg; do
    name=$(basename "$source" .svg)
    bilevel=(-negate -type bilevel -define bmp:format=bmp3)
    rsvg-convert -w 32 -h 32 "$source" | convert - -alpha extract -threshold 50% "${bilevel[@]}" "bmp/$name.bmp"
    rsvg-convert -w 32 -h 32 "$source" | convert - -alpha extract -threshold 50% -morphology Dilate Square:1 \
        "${bilevel[@]}" "bmp/${name}Mask.bmp"
done

[ $# -eq 0 ] || QT_QPA_PLATFORM=offscreen "$picture" png
