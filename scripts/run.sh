#!/usr/bin/env bash
# Installs what is missing, builds the Windows program into build-win/dist
# and starts it (under Wine on Linux).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
scripts/build.sh win
case "$(uname -s)" in
  MINGW*|MSYS*|CYGWIN*) exec build-win/dist/tesel.exe "$@" ;;
  *) WINEDEBUG=${WINEDEBUG:--all} exec wine build-win/dist/tesel.exe "$@" ;;
esac
