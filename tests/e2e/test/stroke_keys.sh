# Numeric + tapped while the pen's button is held zooms the picture in the
# middle of the stroke, one step for the tap the key polling catches; after
# the release it doesn't act a second time from the queue.
. "$(dirname "$0")/../lib.sh"

start_tesel
new_document 64 48
wait_for '^4 CanvWndDispClass#0 "" 64x48 '
read -r vx vy _ _ <<<"$(view_rect)"
step1="$(zoomed 1 64)x$(zoomed 1 48)"

xdotool mousemove $((vx + 20)) $((vy + 20)) mousedown 1
sleep 0.2
xdotool mousemove $((vx + 30)) $((vy + 24))
# Each tap is shorter than the polling's 200 ms, so a tick sees it at most
# once; tap until one has been seen.
for tap in $(seq 20); do
  xdotool keydown KP_Add
  sleep 0.15
  xdotool keyup KP_Add
  sleep 0.1
  [ "$(view_size)" = "64x48" ] || break
done
during=$(view_size)
xdotool mousemove $((vx + 40)) $((vy + 24))
sleep 0.2
xdotool mouseup 1
[ "$during" = "$step1" ] || fail "during the stroke the view is $during, not $step1 (150%)"
wait_for '^2 ZoomFieldClass#1 "150%" ' 5
sleep 1
[ "$(view_size)" = "$step1" ] || fail "after the stroke the view is $(view_size), not $step1"
