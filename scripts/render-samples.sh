#!/usr/bin/env bash
# usage: render-samples.sh PROGRAM FOLDER: draws the charts of the samples into the folder and prints their statistics.
set -euo pipefail
cd "$(dirname "$0")/.."
program=$1
folder=$2
mkdir -p "$folder"

picture() { # FILE CHART ATTRIBUTE
    local picture="$folder/$(basename "${1%.*}")-$2-$(tr -c '[:alnum:]\n' '_' <<<"$3").png"
    "$program" render "$1" --chart "$2" --attribute "$3" --out "$picture"
    echo "== $(basename "$1"), $2: $picture"
}

draw() { # FILE ATTRIBUTE
    picture "$1" histogram "$2"
    "$program" stats "$1" --attribute "$2"
}

draw samples/folded_well.csv dip
draw samples/folded_well.csv azimuth
draw samples/fractures.csv dip
draw samples/lineations.csv plunge
draw samples/logs.las GR
draw samples/logs.las RHOB
picture samples/fractures.csv barchart set
picture samples/logs.las probability RHOB

picture="$folder/logs-crossplot-RHOB-NPHI.png"
"$program" render samples/logs.las --chart crossplot --x RHOB --y NPHI --color-by GR --regression --out "$picture"
echo "== logs.las, crossplot: $picture"

depthplot() { # FILE OPTIONS...
    local picture="$folder/$(basename "${1%.*}")-depthplot.png"
    "$program" render "$1" --chart depthplot "${@:2}" --out "$picture"
    echo "== $(basename "$1"), depthplot: $picture"
}

depthplot samples/logs.las --depth DEPT --tracks GR,RHOB,NPHI,DT,RES
depthplot samples/folded_well.csv --depth depth --tracks dip,azimuth --tadpoles dip,azimuth
