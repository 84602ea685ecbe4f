# Detect Selection (Ctrl+B): a click on a red stroke samples its colour
# into the dialog's bars, Execute and OK select the pixels of that colour:
# the white around the stroke is then darkened as lying outside, and the
# stroke keeps its red.
. "$(dirname "$0")/../lib.sh"

DETECT=$(dialog 'Detect Selection')
red="255 0 0"
darkened="191 191 191"  # white, darkened outside the selection

open_picture 200 150
red_pen
paint_through "$((vx + 40)),$((vy + 40))" "$((vx + 160)),$((vy + 40))"
xdotool mousemove 5 5
shot
expect_pixel $((vx + 100)) $((vy + 40)) "$red" "the stroke to sample"

keys ctrl+b
wait_for "$DETECT"
# The client area's origin on the screen, from Execute's place in it.
read -r ex ey _ _ <<<"$(screen_rect '^1 Button#210 "Execute"')"
cx=$((ex - 8)) cy=$((ey - 196))
# Column i of bar b, at y within it: the scale above, the table below.
bar_cell() { pixel $((cx + 30 + $1 - wx)) $((cy + 8 + 22 * $2 + $3 - wy)); }
grab_window 'Detect Selection' detect-dialog
[ "$(bar_cell 255 0 4)" = "$red" ] || fail "the red bar's scale ends in $(bar_cell 255 0 4)"
[ "$(bar_cell 255 0 12)" = "0 0 128" ] || fail "the table shows $(bar_cell 255 0 12) unpicked"

# A click on the stroke samples it: red 255 and green 0 turn yellow.
point_at $((vx + 100)) $((vy + 40))
xdotool click 1
picked() {
  grab_window 'Detect Selection' detect-sampled
  [ "$(bar_cell 255 0 12)" = "255 255 0" ] && [ "$(bar_cell 0 1 12)" = "255 255 0" ]
}
poll_until 10 picked || fail "the bars show $(bar_cell 255 0 12) and $(bar_cell 0 1 12) after sampling"

point_at $((ex + 10)) $((ey + 8))
xdotool click 1
read -r ox oy _ _ <<<"$(screen_rect '^1 Button#1 "OK"')"
point_at $((ox + 10)) $((oy + 8))
xdotool click 1
wait_gone "$DETECT"

xdotool mousemove 5 5
outside() { pixel_is $((vx + 100)) $((vy + 100)) "$darkened"; }
shot_until 10 outside
keep_shot detected
expect_pixel $((vx + 100)) $((vy + 100)) "$darkened" "the white lies outside"
expect_pixel $((vx + 100)) $((vy + 40)) "$red" "the stroke's red is selected"
