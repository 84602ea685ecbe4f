#!/usr/bin/env bash
# Installs what is missing and builds the Windows program into build-win/dist.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
scripts/build.sh win
echo "The program folder is build-win/dist."
