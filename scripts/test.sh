#!/usr/bin/env bash
# Installs what is missing, builds both targets and runs every test.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
scripts/check-levels.sh
scripts/build.sh native san win
echo "== native tests"
ctest --test-dir build --output-on-failure -j "$(nproc)"
echo "== native tests under AddressSanitizer and UndefinedBehaviorSanitizer"
ASAN_OPTIONS=detect_leaks=1 ctest --test-dir build-san --output-on-failure -j "$(nproc)"
echo "== the Win32 seam under Wine"
scripts/wine-check.sh
echo "== end-to-end tests of tesel.exe under Wine and Xvfb"
scripts/e2e.sh build-win
echo "== all tests passed"
