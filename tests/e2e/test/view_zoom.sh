# A new 64 x 48 picture shows white in its view at every zoom, the view
# sized by the zoom table and standing on the margin colour of its frame;
# the status bar's read-out names the zoom on white, yellow or cyan.
. "$(dirname "$0")/../lib.sh"

open_picture 64 48
pointer_off_documents  # a zoom keeps the middle of the window

# The view at a zoom step.
wait_step() { wait_view "$(zoomed "$1" 64)x$(zoomed "$1" 48)" 5; }
# The view's size at a step, and its pixels: white inside as far as the
# frame shows it; where it stands inside the frame, the margin around it
# has one colour that isn't white.
check_view() {
  local step=$1
  wait_step "$step"
  shot
  read -r vx vy vw vh <<<"$(view_rect)"
  read -r fx fy fw fh <<<"$(screen_rect "$VIEW_FRAME")"
  # The frame's client area, less its scroll bars.
  local right=$((fx + fw - 18)) bottom=$((fy + fh - 18))
  local x0=$((vx > fx ? vx : fx)) y0=$((vy > fy ? vy : fy))
  local x1=$((vx + vw - 1 < right ? vx + vw - 1 : right))
  local y1=$((vy + vh - 1 < bottom ? vy + vh - 1 : bottom))
  for x in $x0 $(((x0 + x1) / 2)) $x1; do
    for y in $y0 $(((y0 + y1) / 2)) $y1; do
      expect_pixel $x $y "255 255 255" "inside the view at step $step"
    done
  done
  if [ $((vx - 2)) -gt $fx ] && [ $((vy - 2)) -gt $fy ] && [ $((vx + vw + 1)) -lt $right ]; then
    local margin
    margin=$(pixel $((fx + 2)) $((fy + 2)))
    [ "$margin" != "255 255 255" ] || fail "the frame's margin is white"
    expect_pixel $((vx - 1)) $((vy + vh / 2)) "$margin" "left of the view at step $step"
    expect_pixel $((vx + vw)) $((vy + vh / 2)) "$margin" "right of the view at step $step"
    expect_pixel $((vx + vw / 2)) $((vy - 1)) "$margin" "above the view at step $step"
    expect_pixel $((vx + vw / 2)) $((vy + vh)) "$margin" "below the view at step $step"
  fi
}

# The read-out's text, and its colour beside the text.
check_readout() {
  wait_readout "$1"
  read -r rx ry _ _ <<<"$(screen_rect "$ZOOM_FIELD")"
  expect_pixel $((rx + 2)) $((ry + 2)) "$2" "the read-out of $1"
}

check_view 0
check_readout "100%" "255 255 255"
for step in $(seq 1 10); do
  keys ctrl+t
  check_view "$step"
done
check_readout "1000%" "255 255 100"
keep_shot zoom-1000
for step in $(seq 9 -1 -3); do
  keys ctrl+d
  wait_step "$step"
done
check_view -3
check_readout "25%" "100 255 255"
for step in -2 -1 0; do
  keys ctrl+t
  check_view "$step"
done
check_readout "100%" "255 255 255"

# With the last document closed (Window > Close All) the read-out goes.
keys alt+w Down Down Down Return
wait_gone "$DOCUMENT"
wait_gone "$ZOOM_FIELD"
