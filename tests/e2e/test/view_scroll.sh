# A 640 x 480 picture at 200 % is larger than its window: the arrows of a
# scroll bar move the view by a line (2 view pixels here), the trough by a
# page of ten lines, and the thumb dragged to the end shows the bottom of
# the picture with the margin below; what comes into view is painted.
. "$(dirname "$0")/../lib.sh"

bar=16  # about the width of Wine's scroll bars and their arrows

start_tesel
new_document 640 480
wait_for '^4 CanvWndDispClass#0 "" 640x480 '
pointer_off_documents
keys ctrl+t ctrl+t
wait_for '^4 CanvWndDispClass#0 "" 1280x960 '
sleep 0.5
place() { probe | sed -n 's/^4 CanvWndDispClass#0 "" 1280x960 @\(.*\),\(.*\)$/\1 \2/p'; }
# Clicks at a screen point and waits for the view to stand at x, y.
click_until() {
  xdotool mousemove "$1" "$2" click 1
  local end=$((SECONDS + 5))
  until [ "$(place)" = "$3 $4" ]; do
    [ $SECONDS -lt $end ] || fail "the view stands at $(place), not $3 $4"
    sleep 0.2
  done
}
read -r fx fy fw fh <<<"$(screen_rect '^3 CanvWndClass#9 ')"
read -r x y <<<"$(place)"

click_until $((fx + fw - bar / 2)) $((fy + fh - bar - bar / 2)) $x $((y - 2))          # down arrow
click_until $((fx + fw - bar - bar / 2)) $((fy + fh - bar / 2)) $((x - 2)) $((y - 2))   # right arrow
click_until $((fx + fw - bar / 2)) $((fy + fh - 2 * bar - 4)) $((x - 2)) $((y - 22))    # trough
click_until $((fx + fw - bar / 2)) $((fy + bar + 4)) $((x - 2)) $((y - 2))              # trough above

# The thumb covers the middle of the track: the page is more than half
# the range. It goes down to the arrow; beyond the bar a drag would
# spring back.
xdotool mousemove $((fx + fw - bar / 2)) $((fy + fh / 2 - bar / 2))
sleep 0.3
xdotool mousedown 1
for d in 50 100 200 $((fh / 2 - bar - 4)); do
  sleep 0.2
  xdotool mousemove $((fx + fw - bar / 2)) $((fy + fh / 2 + d))
done
sleep 0.3
xdotool mouseup 1
xdotool mousemove 5 5
shot
keep_shot scrolled-to-bottom
read -r vx vy _ _ <<<"$(view_rect)"
bottom=$((vy + 960))
# The bottom of the picture, then the margin of 8 pixels, then the bar.
margin=$(pixel $((fx + 2)) $((bottom + 1)))
[ "$margin" != "255 255 255" ] || fail "below the picture is white"
for x in $((fx + 1)) $((fx + fw / 2)) $((fx + fw - bar - 2)); do
  expect_pixel $x $((bottom - 1)) "255 255 255" "the picture's last row"
  expect_pixel $x $((bottom + 7)) "$margin" "the margin below the picture"
  [ "$(pixel $x $((bottom + 8)))" != "$margin" ] || fail "the margin goes on below $((bottom + 7))"
  for y in $((fy + 1)) $((fy + fh / 2)) $((bottom - 200)); do
    expect_pixel $x $y "255 255 255" "the picture scrolled into view"
  done
done
