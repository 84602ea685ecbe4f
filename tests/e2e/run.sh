#!/usr/bin/env bash
# Runs the end-to-end tests of tesel.exe: a virtual X server, one Wine
# prefix booted once, and for each test in tests/e2e/test/ a fresh copy of
# that prefix and of the program folder. Screenshots and logs go to
# <build>/e2e-output/<test>/.
# Usage: tests/e2e/run.sh <Windows build folder> [test name...]
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$(cd "$1" && pwd)
shift
dist=$build/dist
probe=$build/tests/e2e/e2e_probe.exe
for f in "$dist/tesel.exe" "$dist/env__2.env" "$probe"; do
  [ -f "$f" ] || { echo "missing $f: build the Windows tree first" >&2; exit 2; }
done

work=$(mktemp -d "${TMPDIR:-/tmp}/tesel-e2e.XXXXXX")
output=$build/e2e-output
rm -rf "$output"
mkdir -p "$output"
xvfb_pid=
cleanup() {
  for prefix in "$work"/*/prefix "$work"/base; do
    [ -d "$prefix" ] && WINEPREFIX=$prefix wineserver -k >/dev/null 2>&1
  done
  [ -n "$xvfb_pid" ] && kill "$xvfb_pid" 2>/dev/null
  rm -rf "$work"
}
trap cleanup EXIT

# The first free display from :90 on.
display=90
while [ -e /tmp/.X11-unix/X$display ] || [ -e /tmp/.X$display-lock ]; do display=$((display + 1)); done
Xvfb ":$display" -screen 0 1280x1024x24 -nolisten tcp >"$output/xvfb.log" 2>&1 &
xvfb_pid=$!
export DISPLAY=":$display"
for _ in $(seq 50); do xdotool getdisplaygeometry >/dev/null 2>&1 && break; sleep 0.1; done

export WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
start=$SECONDS
echo "== booting a Wine prefix ($(wine --version))"
(
  export WINEPREFIX=$work/base
  timeout 120 wineboot --init >"$output/wineboot.log" 2>&1
  # Wine draws the frames itself, so an X window is the whole window;
  # a crash ends the program without a dialog.
  wine reg add 'HKCU\Software\Wine\X11 Driver' /v Decorated /t REG_SZ /d N /f >/dev/null 2>&1
  wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f >/dev/null 2>&1
  wineserver -w
) || { echo "could not boot a Wine prefix" >&2; exit 1; }
echo "   $((SECONDS - start)) s"

tests=("$@")
[ ${#tests[@]} -eq 0 ] && tests=($(cd "$here/test" && ls *.sh | sed 's/\.sh$//'))
passed=0
failed=0
for name in "${tests[@]}"; do
  t=$work/$name
  mkdir -p "$t" "$output/$name"
  cp -a "$work/base" "$t/prefix"
  cp -a "$dist" "$t/dist"
  cp "$probe" "$t/probe.exe"
  began=$SECONDS
  if WINEPREFIX=$t/prefix DIST=$t/dist PROBE=$t/probe.exe OUT=$output/$name \
     timeout --kill-after=5 120 bash "$here/test/$name.sh" >"$output/$name/test.log" 2>&1; then
    passed=$((passed + 1))
    echo "ok   $name ($((SECONDS - began)) s)"
  else
    failed=$((failed + 1))
    echo "FAIL $name ($((SECONDS - began)) s)"
    sed 's/^/     /' "$output/$name/test.log"
  fi
  WINEPREFIX=$t/prefix wineserver -k >/dev/null 2>&1
  rm -rf "$t"
done
echo "== end-to-end: $((SECONDS - start)) s"
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
