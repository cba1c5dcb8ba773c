#!/usr/bin/env bash
# usage: render-samples.sh PROGRAM FOLDER: draws the charts of the samples into the folder and prints their statistics.
set -euo pipefail
cd "$(dirname "$0")/.."
program=$1
folder=$2
mkdir -p "$folder"

draw() { # FILE ATTRIBUTE
    local picture="$folder/$(basename "${1%.*}")-histogram-$(tr -c '[:alnum:]\n' '_' <<<"$2").png"
    "$program" render "$1" --chart histogram --attribute "$2" --out "$picture"
    echo "== $(basename "$1"), histogram: $picture"
    "$program" stats "$1" --attribute "$2"
}

draw samples/folded_well.csv dip
draw samples/folded_well.csv azimuth
draw samples/fractures.csv dip
draw samples/lineations.csv plunge
draw samples/logs.las GR
draw samples/logs.las RHOB
