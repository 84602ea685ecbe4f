#!/usr/bin/env bash
# Installs what the builds and tests need and is not on the machine yet.
# Usage: scripts/install-deps.sh [package...]   (extra packages on top of the base set)
set -euo pipefail

packages=(cmake g++ make pkg-config zlib1g-dev libgtest-dev libgmock-dev libbenchmark-dev
          libpixman-1-dev libmypaint-dev mingw-w64 libz-mingw-w64-dev wine64 wine
          xvfb xdotool x11-apps imagemagick fonts-wine "$@")

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
echo "Installing: ${missing[*]}"
$sudo apt-get update -qq
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
