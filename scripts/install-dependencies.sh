#!/usr/bin/env bash
# Installs what building and running need, from Debian's packages. Does nothing when all of it is there.
set -euo pipefail

packages=(g++ cmake ninja-build ccache
          qt6-base-dev qt6-svg-dev libqt6svg6 qt6-qpa-plugins
          libeigen3-dev libboost-dev libudunits2-dev libbenchmark-dev
          fonts-dejavu-core)

missing=()
for package in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed'; then
        missing+=("$package")
    fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
