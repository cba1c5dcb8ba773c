#!/usr/bin/env bash
# usage: render-samples.sh PROGRAM FOLDER: draws the charts of the samples into the folder and prints their statistics.
set -euo pipefail
cd "$(dirname "$0")/.."
program=$1
folder=$2
mkdir -p "$folder"

chart() { # FILE NAME CHART OPTIONS...
    local picture="$folder/$(basename "${1%.*}")-$2.png"
    "$program" render "$1" --chart "$3" "${@:4}" --out "$picture"
    echo "== $(basename "$1"), $3: $picture"
}

statistics() { # FILE OPTIONS...
    echo "== $(basename "$1"), statistics"
    "$program" stats "$@"
}

histogram() { # FILE ATTRIBUTE
    chart "$1" "histogram-$2" histogram --attribute "$2"
    statistics "$1" --attribute "$2"
}

folded=samples/folded_well.csv
fractures=samples/fractures.csv
lineations=samples/lineations.csv
logs=samples/logs.las

histogram "$folded" dip
histogram "$folded" azimuth
histogram "$fractures" dip
histogram "$lineations" plunge
histogram "$logs" GR
histogram "$logs" RHOB
chart "$fractures" barchart-set barchart --attribute set
chart "$logs" probability-RHOB probability --attribute RHOB
chart "$logs" crossplot-RHOB-NPHI crossplot --x RHOB --y NPHI --color-by GR --regression
chart "$logs" depthplot depthplot --depth DEPT --tracks GR,RHOB,NPHI,DT,RES
chart "$folded" depthplot depthplot --depth depth --tracks dip,azimuth --tadpoles dip,azimuth

planes=(--dip dip --azimuth "dip azimuth")
chart "$fractures" stereonet-contours stereonet "${planes[@]}" --contours
chart "$fractures" stereonet-sets stereonet "${planes[@]}" --color-by set
chart "$fractures" stereonet-planes stereonet "${planes[@]}" --planes --no-points --color-by set
chart "$fractures" woodcock-sets woodcock "${planes[@]}" --color-by set
chart "$fractures" rose rose --direction "dip azimuth" --color-by set
for set in "joints east" "joints south-west" sheeting; do
    statistics "$fractures" "${planes[@]}" --where "set=$set"
done

bedding=(--dip dip --azimuth azimuth)
chart "$folded" stereonet stereonet "${bedding[@]}" --net --results girdle,L
chart "$folded" tangent tangent "${bedding[@]}" --fold-axis
statistics "$folded" "${bedding[@]}"
scat=(--depth depth "${bedding[@]}" --scenario samples/folded_well_scenario.txt)
chart "$folded" scat scat "${scat[@]}"
chart "$folded" scat-black scat "${scat[@]}" --background black
echo "== $(basename "$folded"), crests and inflections"
"$program" scat "$folded" --depth depth "${bedding[@]}"

lines=(--dip plunge --azimuth trend --lines)
chart "$lineations" stereonet stereonet "${lines[@]}" --contours --results mean
chart "$lineations" rose rose --direction trend --sector 10
statistics "$lineations" "${lines[@]}"
statistics "$lineations" --direction trend --sector 10
