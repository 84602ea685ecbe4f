# View > Ruler shows both rulers with a tick at every 50 canvas pixels and
# the pointer's mark; View > Grid asks for the pitch in the dialog Grid and
# draws a line at every 16th canvas pixel by inversion: black on white,
# white again where two lines cross. Grid once more takes it off.
. "$(dirname "$0")/../lib.sh"

scale="240 240 240"
black="0 0 0"
white="255 255 255"

open_picture 640 480
view_menu 5  # Ruler
wait_for "$H_RULER\"\" 640x7 "
wait_for "$V_RULER\"\" 7x480 "
view_menu 6  # Grid
wait_for "$(dialog Grid)"
[ "$(field 3101)x$(field 3102)" = 16x16 ] || fail "the dialog offers a pitch of $(field 3101)x$(field 3102)"
answer "$(dialog Grid)" Return

# Where the parts stand with the rulers in.
read -r vx vy _ _ <<<"$(view_rect)"
read -r hx hy _ _ <<<"$(screen_rect "$H_RULER")"
read -r rx ry _ _ <<<"$(screen_rect "$V_RULER")"

# The pixels of each part, checked by $1: expect_pixel, which fails, or
# pixel_is, which only answers (while waiting for the screen to settle,
# since menus and dialogs leave late repaints behind them).
#
# Grid lines at 0, 16, 32 ... both ways; the pen's outline at the pointer
# is far from all of these.
grid_pixels() {
  local at x y
  for at in "16 8" "8 16" "0 100" "100 0" "320 250" "330 240" "624 470" "630 464"; do
    read -r x y <<<"$at"
    $1 $((vx + x)) $((vy + y)) "$black" "grid line at $x,$y" || return 1
  done
  for at in "8 8" "40 40" "330 250" "16 16" "320 240" "624 464"; do
    read -r x y <<<"$at"
    $1 $((vx + x)) $((vy + y)) "$white" "off the lines or where two cross, at $x,$y" || return 1
  done
}
# The scale is the upper half of the horizontal ruler (rows 0..2): a
# hundred's tick crosses it, a fifty's is blue in the lower row. The mark
# below stands at the pointer's column 200 in a 16-pixel light box. The
# vertical ruler has all ticks black and the mark at row 100.
ruler_pixels() {
  local at
  for at in 0 100 300 600; do $1 $((hx + at)) $hy "$black" "hundred's tick at $at" || return 1; done
  for at in 50 150 550; do
    $1 $((hx + at)) $hy "$scale" "above the fifty's tick at $at" || return 1
    $1 $((hx + at)) $((hy + 2)) "0 0 255" "fifty's tick at $at" || return 1
  done
  $1 $((hx + 25)) $((hy + 1)) "$scale" "scale between ticks" &&
    $1 $((hx + 200)) $((hy + 5)) "$black" "the horizontal mark" &&
    $1 $((hx + 195)) $((hy + 5)) "$scale" "the mark's box" &&
    $1 $((hx + 185)) $((hy + 5)) "$black" "beside the mark's box" &&
    $1 $rx $((ry + 200)) "$black" "hundred's tick at 200" &&
    $1 $((rx + 2)) $((ry + 250)) "$black" "fifty's tick at 250" &&
    $1 $rx $((ry + 250)) "$scale" "beside the fifty's tick at 250" &&
    $1 $((rx + 5)) $((ry + 100)) "$black" "the vertical mark" &&
    $1 $((rx + 5)) $((ry + 95)) "$scale" "the vertical mark's box"
}
# Where grid lines were.
no_grid_pixels() {
  $1 $((vx + 16)) $((vy + 8)) "$white" "where a grid line was" &&
    $1 $((vx + 320)) $((vy + 250)) "$white" "where a grid line was"
}
all_pixels() { grid_pixels "$1" && ruler_pixels "$1"; }

xdotool mousemove $((vx + 200)) $((vy + 100))
shot_until 10 all_pixels pixel_is
keep_shot rulers-grid
all_pixels expect_pixel

# Grid again: off, without the dialog.
xdotool mousemove 5 5
view_menu 6
shot_until 10 no_grid_pixels pixel_is
has_window '"Grid"' && fail "the dialog came up to turn the grid off"
no_grid_pixels expect_pixel
