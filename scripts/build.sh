#!/usr/bin/env bash
# Builds the native tree (build/), the sanitizer tree (build-san/) and the
# Windows program (build-win/). Usage: scripts/build.sh [native|san|win]...
set -euo pipefail
cd "$(dirname "$0")/.."
jobs=$(nproc)
targets=("$@")
[ ${#targets[@]} -eq 0 ] && targets=(native san win)
for t in "${targets[@]}"; do
  case "$t" in
    native) cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
            cmake --build build -j "$jobs" ;;
    san)    cmake -S . -B build-san -DCMAKE_BUILD_TYPE=Debug -DTESEL_SANITIZE=ON >/dev/null
            cmake --build build-san -j "$jobs" ;;
    win)    cmake -S . -B build-win -DCMAKE_BUILD_TYPE=Release \
              -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64.cmake >/dev/null
            cmake --build build-win -j "$jobs" ;;
    *) echo "unknown build: $t" >&2; exit 2 ;;
  esac
done
