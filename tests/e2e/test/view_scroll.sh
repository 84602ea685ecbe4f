# A 640 x 480 picture at 200 % is larger than its window: the arrows of a
# scroll bar move the view by a line (2 view pixels here), the trough by a
# page of ten lines, and the thumb dragged to the end shows the bottom of
# the picture with the margin below; what comes into view is painted.
. "$(dirname "$0")/../lib.sh"

bar=16  # about the width of Wine's scroll bars and their arrows

open_large_picture
read -r x y _ _ <<<"$(view_rect)"
# Clicks at a screen point and waits for the view to stand at x, y.
click_until() {
  xdotool mousemove "$1" "$2" click 1
  wait_view_at "$3" "$4" "$5"
}
click_until $((fx + fw - bar / 2)) $((fy + fh - bar - bar / 2)) $x $((y - 2)) "the down arrow"
click_until $((fx + fw - bar - bar / 2)) $((fy + fh - bar / 2)) $((x - 2)) $((y - 2)) "the right arrow"
click_until $((fx + fw - bar / 2)) $((fy + fh - 2 * bar - 4)) $((x - 2)) $((y - 22)) "the trough"
click_until $((fx + fw - bar / 2)) $((fy + bar + 4)) $((x - 2)) $((y - 2)) "the trough above"

# The thumb covers the middle of the track: the page is more than half
# the range. It goes down to the arrow; beyond the bar a drag would
# spring back.
point_at $((fx + fw - bar / 2)) $((fy + fh / 2 - bar / 2))
xdotool mousedown 1
for d in 50 100 200 $((fh / 2 - bar - 4)); do
  sleep 0.2
  xdotool mousemove $((fx + fw - bar / 2)) $((fy + fh / 2 + d))
done
sleep 0.3  # at rest before the release, as in drag
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
