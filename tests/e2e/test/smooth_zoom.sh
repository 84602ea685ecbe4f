# Smooth Zoom from the keyboard: Shift+F2 asks for the factor, whose first
# row reads "x16" and yet gives 2; the frame of half the picture's size
# stands centred, its menu enlarges what lies under it to fill the view,
# and Shift+F2 again puts the picture back as it was.
. "$(dirname "$0")/../lib.sh"

open_picture 200 150
path=()
for x in $(seq 20 10 180); do path+=("$((vx + x)),$((vy + 70))"); done
drag "${path[@]}"
xdotool mousemove 5 5
shot
keep_shot before
# The view's pixels, less two places where the pen's outline may stay
# behind: where the stroke began and where the pointer leaves the view.
leave_x=190 leave_y=140
masked() {
  convert "$1" -fill black -draw "rectangle 10,60 30,80" \
    -draw "rectangle $((leave_x - 10)),$((leave_y - 10)) $((leave_x + 9)),$((leave_y + 9))" "$2"
}
view() { convert "$1" -crop "200x150+$vx+$vy" +repage "$2" && masked "$2" "$2"; }
view "$SHOT.png" "$SHOT-before.png"
# Whether the last screenshot's view shows the picture given; differing
# counts the pixels that don't.
view_shows() {
  view "$SHOT.png" "$SHOT-view.png"
  differing=$(compare -metric AE "$1" "$SHOT-view.png" null: 2>&1 || true)
  [ "$differing" = 0 ]
}
# The frame is 100 x 75 at (50, 37), drawn by inversion over white; $1 is
# expect_pixel, which fails, or pixel_is, which only answers.
frame_pixels() {
  local at x y
  for at in "50 60" "149 60" "80 37" "80 111"; do
    read -r x y <<<"$at"
    $1 $((vx + x)) $((vy + y)) "0 0 0" "the frame's edge at $x,$y" || return 1
  done
  $1 $((vx + 51)) $((vy + 60)) "255 255 255" "inside the frame" &&
    $1 $((vx + 49)) $((vy + 60)) "255 255 255" "outside the frame"
}

keys shift+F2
answer "$(dialog 'Smooth Zoom')" Tab space Return  # the first row, not smoothed
shot_until 10 frame_pixels pixel_is
keep_shot frame
frame_pixels expect_pixel

xdotool mousemove $((vx + leave_x)) $((vy + leave_y)) click 3
sleep 0.5  # the menu opens; the probe lists no menus
dialog_keys s  # the menu's "Smooth Zoom"
xdotool mousemove 5 5
# Each pixel under the frame now fills 2 x 2 view pixels.
convert "$SHOT-before.png" -crop 100x75+50+37 +repage -sample 200% "$SHOT-expected.png"
masked "$SHOT-expected.png" "$SHOT-expected.png"
shot_until 5 view_shows "$SHOT-expected.png"
keep_shot entered
view_shows "$SHOT-expected.png" ||
  fail "$differing pixels of the enlarged view differ from the frame's part doubled"

keys shift+F2
shot_until 5 view_shows "$SHOT-before.png"
keep_shot left
view_shows "$SHOT-before.png" || fail "$differing pixels differ from the picture before Smooth Zoom"
