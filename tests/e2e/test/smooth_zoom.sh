# Smooth Zoom from the keyboard: Shift+F2 asks for the factor, whose first
# row reads "x16" and yet gives 2; the frame of half the picture's size
# stands centred, its menu enlarges what lies under it to fill the view,
# and Shift+F2 again puts the picture back as it was.
. "$(dirname "$0")/../lib.sh"

start_tesel
new_document 200 150
wait_for '^4 CanvWndDispClass#0 "" 200x150 '
read -r vx vy _ _ <<<"$(view_rect)"
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
# Screenshots until the view shows the picture given, for at most five
# seconds; prints how many of its pixels differ in the last one.
settles_to() {
  local end=$((SECONDS + 5)) n
  while :; do
    shot
    view "$SHOT.png" "$SHOT-view.png"
    n=$(compare -metric AE "$1" "$SHOT-view.png" null: 2>&1 || true)
    [ "$n" = 0 ] || [ $SECONDS -ge $end ] && break
  done
  echo "$n"
}

keys shift+F2
wait_for '^0 #32770#0 "Smooth Zoom"'
dialog_keys Tab space Return  # the first row, not smoothed
wait_gone '^0 #32770#0 "Smooth Zoom"'
shot
keep_shot frame
# The frame is 100 x 75 at (50, 37), drawn by inversion over white.
for at in "50 60" "149 60" "80 37" "80 111"; do
  read -r x y <<<"$at"
  expect_pixel $((vx + x)) $((vy + y)) "0 0 0" "the frame's edge at $x,$y"
done
expect_pixel $((vx + 51)) $((vy + 60)) "255 255 255" "inside the frame"
expect_pixel $((vx + 49)) $((vy + 60)) "255 255 255" "outside the frame"

xdotool mousemove $((vx + leave_x)) $((vy + leave_y)) click 3
sleep 0.5
dialog_keys s  # the menu's "Smooth Zoom"
xdotool mousemove 5 5
# Each pixel under the frame now fills 2 x 2 view pixels.
convert "$SHOT-before.png" -crop 100x75+50+37 +repage -sample 200% "$SHOT-expected.png"
masked "$SHOT-expected.png" "$SHOT-expected.png"
n=$(settles_to "$SHOT-expected.png")
keep_shot entered
[ "$n" = 0 ] || fail "$n pixels of the enlarged view differ from the frame's part doubled"

keys shift+F2
n=$(settles_to "$SHOT-before.png")
keep_shot left
[ "$n" = 0 ] || fail "$n pixels differ from the picture before Smooth Zoom"
