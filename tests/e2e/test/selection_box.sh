# A box dragged with the box tool shows its outline; with "Mask Outside
# Selection" on, a pen stroke drawn across it paints only inside the box,
# and the outline stays whole through the stroke's repaints.
. "$(dirname "$0")/../lib.sh"

boxed_picture
keep_shot box-outline
outlined || fail "no outline on the box's edges"
# The outline alone: nothing dark off its frame and pegs.
[ -z "$(not_white_box $((vx + 60)) $((vy + 50)) 80 40)" ] || fail "marks inside the box"
[ -z "$(not_white_box $vx $vy 40 150)" ] || fail "marks left of the box"
# The outside as the view shows it, before the stroke.
left_before=$(pixel $((vx + 30)) $((vy + 70)))
right_before=$(pixel $((vx + 170)) $((vy + 70)))

send_command 20005
click_control 3 Button 331
drag "$((vx + 10)),$((vy + 70))" "$((vx + 60)),$((vy + 70))" "$((vx + 120)),$((vy + 70))" \
  "$((vx + 190)),$((vy + 70))"
xdotool mousemove 5 5
painted() { pixel_is_not $((vx + 100)) $((vy + 70)) "255 255 255"; }
shot_until 10 painted
keep_shot box-painted
painted || fail "no paint across the box"
pixel_is $((vx + 30)) $((vy + 70)) "$left_before" || fail "paint left of the box"
pixel_is $((vx + 170)) $((vy + 70)) "$right_before" || fail "paint right of the box"
outlined || fail "the outline went with the stroke's repaint"
[ -z "$(not_white_box $((vx + 60)) $((vy + 45)) 80 15)" ] || fail "marks in the box above the stroke"
