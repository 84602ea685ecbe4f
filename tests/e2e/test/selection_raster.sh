# The Selection menu's commands on the raster: Invert on a picture without
# a selection leaves nothing selected, and the view darkens all over;
# Fatten asks its radius in "Fatten Selection" and, with nothing to grow,
# changes nothing; Blur Outside offers the same radius and its two ways of
# blurring; a second Invert selects everything and the white comes back;
# and a box fattened shows the outline of its raster.
. "$(dirname "$0")/../lib.sh"

white="255 255 255"
dark="191 191 191"  # white darkened to three quarters outside the selection

open_picture 200 150
view_is() { pixel_is $((vx + 100)) $((vy + 75)) "$1" && pixel_is $((vx + 190)) $((vy + 140)) "$1"; }

keys alt+s v  # In&vert Selection
shot_until 10 view_is "$dark"
keep_shot inverted
expect_pixel $((vx + 100)) $((vy + 75)) "$dark" "nothing selected after Invert"

keys alt+s Down Down Down Down Return  # Fatten Selection...
wait_for "$(dialog "Fatten Selection")"
dialog_keys ctrl+a
type_text 3
answer "$(dialog "Fatten Selection")" Return
shot
expect_pixel $((vx + 100)) $((vy + 75)) "$dark" "Fatten of nothing selected"

keys alt+s Down Down Down Down Down Down Return  # Blur Outside Selection
blur="$(dialog "Blur Border of Selected Area")"
wait_for "$blur"
# The three dialogs share their radius: Fatten's 3 is offered again.
radius_is() { [ "$(field 100)" = "$1" ]; }
wait_until 5 radius_is 3
# A shot of the screen shows a dialog black here; its own window shows it.
xwd -id "$(xdotool search --name "Blur Border of Selected Area" | head -1)" -silent |
  convert xwd:- "$OUT/blur-outside-dialog.png"
answer "$blur" Escape

keys alt+s v
shot_until 10 view_is "$white"
keep_shot inverted-back
expect_pixel $((vx + 190)) $((vy + 140)) "$white" "everything selected after a second Invert"

# A box fattened by 3 loses its shape: the edges of its raster show as an
# outline inverted over the picture, 3 pixels out from the box on every
# side, and the old frame is gone from inside.
send_command 20001
drag "$((vx + 50)),$((vy + 40))" "$((vx + 100)),$((vy + 70))" "$((vx + 150)),$((vy + 100))"
xdotool mousemove 5 5
keys alt+s Down Down Down Down Return
wait_for "$(dialog "Fatten Selection")"
dialog_keys ctrl+a
type_text 3
answer "$(dialog "Fatten Selection")" Return
fattened() {
  pixel_is $((vx + 100)) $((vy + 37)) "0 0 0" && pixel_is $((vx + 47)) $((vy + 70)) "0 0 0" &&
    pixel_is $((vx + 100)) $((vy + 40)) "$white"
}
shot_until 10 fattened
keep_shot fattened-outline
expect_pixel $((vx + 100)) $((vy + 37)) "0 0 0" "the outline's top edge"
expect_pixel $((vx + 47)) $((vy + 70)) "0 0 0" "the outline's left edge"
expect_pixel $((vx + 100)) $((vy + 40)) "$white" "where the box's frame was"
expect_pixel $((vx + 20)) $((vy + 20)) "$dark" "outside the fattened box"
