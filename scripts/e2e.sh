#!/usr/bin/env bash
# End-to-end tests of the Windows program under Wine in a virtual X server:
# real keys and pointer events, window titles, message boxes, files.
# Usage: scripts/e2e.sh [Windows build folder] [test name...]   (default build-win)
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
build=${1:-build-win}
[ $# -gt 0 ] && shift
exec tests/e2e/run.sh "$build" "$@"
