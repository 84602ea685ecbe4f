# Numeric + tapped while the pen's button is held zooms the picture in the
# middle of the stroke, one step for the tap the key polling catches; after
# the release it doesn't act a second time from the queue.
. "$(dirname "$0")/../lib.sh"

open_picture 64 48
step1="$(zoomed 1 64)x$(zoomed 1 48)"

xdotool mousemove $((vx + 20)) $((vy + 20)) mousedown 1
sleep 0.2  # the stroke has begun
xdotool mousemove $((vx + 30)) $((vy + 24))
# Each tap is shorter than the polling's 200 ms, so a tick sees it at most
# once; tap until one has been seen.
tap_seen() {
  xdotool keydown KP_Add
  sleep 0.15
  xdotool keyup KP_Add
  sleep 0.1
  [ "$(view_size)" != 64x48 ]
}
poll_until 15 tap_seen || true
during=$(view_size)
xdotool mousemove $((vx + 40)) $((vy + 24))
sleep 0.2  # the stroke sees the last move before the release
xdotool mouseup 1
[ "$during" = "$step1" ] || fail "during the stroke the view is $during, not $step1 (150%)"
wait_readout 150%
sleep 1  # a second step from the queue would show by now; nothing else would tell
[ "$(view_size)" = "$step1" ] || fail "after the stroke the view is $(view_size), not $step1"
