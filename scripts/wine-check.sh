#!/usr/bin/env bash
# Runs the Win32 seam check and the check of the WIC file plug-in of the
# Windows build under Wine, in a fresh prefix
# that is thrown away afterwards. Fails when the check fails or hangs.
# Usage: scripts/wine-check.sh [build folder]   (default build-win)
set -euo pipefail
cd "$(dirname "$0")/.."
build="${1:-build-win}"
exe="$build/tests/win32/seam_check.exe"
wic="$build/tests/win32/wic_plugin_check.exe"
for file in "$exe" "$wic" "$build/dist/file_r/wic.dll"; do
  [ -f "$file" ] || { echo "no $file: build the Windows tree first" >&2; exit 2; }
done
command -v wine >/dev/null || { echo "wine is missing: run scripts/install-deps.sh" >&2; exit 2; }

prefix=$(mktemp -d "${TMPDIR:-/tmp}/tesel-wine.XXXXXX")
export WINEPREFIX="$prefix" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
unset DISPLAY
cleanup() {
  wineserver -k >/dev/null 2>&1 || true
  rm -rf "$prefix"
}
trap cleanup EXIT

# A console program needs no display, nor does making the prefix.
echo "== Win32 seam check under Wine ($(wine --version))"
# The log goes to a file: wineserver lingers after wineboot, and a pipe
# would wait for it.
if ! timeout --kill-after=10 120 wineboot --init >"$prefix/wineboot.log" 2>&1; then
  cat "$prefix/wineboot.log" >&2
  echo "could not make a Wine prefix" >&2
  exit 1
fi
status=0
timeout --kill-after=10 300 wine "$exe" || status=$?
[ "$status" -eq 124 ] && echo "seam check timed out" >&2
echo "== WIC file plug-in under Wine"
# It finds the DLL beside itself, in ../../dist/file_r/.
wic_status=0
timeout --kill-after=10 300 wine "$wic" || wic_status=$?
[ "$wic_status" -eq 124 ] && echo "WIC plug-in check timed out" >&2
# A reader other than WIC sees the same pixels in the PNG written under Wine:
# the check's 37x23 gradient with alpha, at 300 dpi.
png=$(find "$prefix" -path '*wic_plugin_check/round.png' -print -quit)
if [ "$wic_status" -eq 0 ] && command -v identify >/dev/null && [ -n "$png" ]; then
  seen=$(identify -format '%w %h %[channels] %[pixel:p{10,5}] %[pixel:p{36,22}] %[fx:round(resolution.x*2.54)]' "$png")
  expected="37 23 srgba srgba(130,57,70,0.243137) srgba(135,255,255,1) 300"
  if [ "$seen" = "$expected" ]; then
    echo "ok   ImageMagick reads the written png as written"
  else
    echo "FAIL ImageMagick reads the written png as written: $seen, not $expected"
    wic_status=1
  fi
fi
# The layer dialogs need a display: a virtual X server of their own. Their
# screenshots go to <build>/wine-check-output/layer_dialogs/ as PNG files.
dialogs_status=0
dialogs="$build/tests/win32/layer_dialogs_check.exe"
if [ -f "$dialogs" ] && command -v Xvfb >/dev/null; then
  echo "== layer dialogs under Wine"
  shots="$build/wine-check-output/layer_dialogs"
  rm -rf "$shots" && mkdir -p "$shots"
  display=80
  while [ -e /tmp/.X11-unix/X$display ] || [ -e /tmp/.X$display-lock ]; do display=$((display + 1)); done
  Xvfb ":$display" -screen 0 1024x768x24 -nolisten tcp >/dev/null 2>&1 &
  xvfb=$!
  for _ in $(seq 50); do [ -e /tmp/.X11-unix/X$display ] && break; sleep 0.1; done
  # The server of the checks above runs without a display, and so would
  # every window of a program it serves.
  wineserver -k >/dev/null 2>&1 || true
  # Wine draws the frames itself, so that a screenshot shows the titles.
  DISPLAY=":$display" wine reg add 'HKCU\Software\Wine\X11 Driver' /v Decorated /t REG_SZ /d N /f \
    >/dev/null 2>&1
  shots=$(cd "$shots" && pwd)
  DISPLAY=":$display" timeout --kill-after=10 120 wine "$dialogs" "Z:${shots//\//\\}" ||
    dialogs_status=$?
  [ "$dialogs_status" -eq 124 ] && echo "layer dialogs check timed out" >&2
  wineserver -k >/dev/null 2>&1 || true
  kill "$xvfb" 2>/dev/null || true
  if command -v convert >/dev/null; then
    for bmp in "$shots"/*.bmp; do
      [ -f "$bmp" ] && convert "$bmp" "${bmp%.bmp}.png" && rm "$bmp"
    done
  fi
fi
[ "$status" -ne 0 ] && exit "$status"
[ "$dialogs_status" -ne 0 ] && exit "$dialogs_status"
exit "$wic_status"
