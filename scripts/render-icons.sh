#!/usr/bin/env bash
# Draws the PNG icons of the program from their SVG sources (needs rsvg-convert). Run it after changing a source.
set -euo pipefail
cd "$(dirname "$0")/../app/resources"
for source in svg/*.svg; do
    name=$(basename "$source" .svg)
    size=16
    [ "$name" = gkanalyser ] && size=64
    rsvg-convert -w "$size" -h "$size" "$source" -o "png/$name.png"
    rsvg-convert -w $((2 * size)) -h $((2 * size)) "$source" -o "png/$name@2x.png"
done
