# A box dragged with the box tool is saved through Save Selection... and
# its file dialog as a ".TSS" file of its kind and corners; after Deselect,
# Load Selection... brings its outline back. A file laid out by hand loads
# too, darkening what lies outside its box; saved again it gives the same
# bytes, and it brings the box onto another picture, clipped.
. "$(dirname "$0")/../lib.sh"

boxed_picture
outlined || fail "no outline on the dragged box"
keys ctrl+q
enter_name "$SAVE_AS" "$FOLDER\\drawn"
wait_until 20 test -s "$DIST/drawn.tss"
[ "$(stat -c %s "$DIST/drawn.tss")" -eq 40988 ] || fail "the box's file is $(stat -c %s "$DIST/drawn.tss") bytes"
for field in "0 20001" "4 50" "8 40" "12 150" "16 100"; do
  [ "$(word_at "$DIST/drawn.tss" "${field% *}")" = "${field#* }" ] ||
    fail "word ${field% *} of the box's file is $(word_at "$DIST/drawn.tss" "${field% *}"), not ${field#* }"
done
send_command 20500
unmarked() { pixel_is $((vx + 100)) $((vy + 40)) "255 255 255"; }
shot_until 10 unmarked
unmarked || fail "Deselect left the outline"
keys ctrl+e
enter_name "$OPEN" "$FOLDER\\drawn.tss"
xdotool mousemove 5 5
shot_until 10 outlined
keep_shot reloaded
outlined || fail "Load Selection did not bring the box back"

box_selection_file 20 30 99 79 >"$DIST/box.tss"

# Inside the box the picture stays white; outside it is darkened.
shows_box() {
  pixel_is $((vx + 60)) $((vy + 55)) "255 255 255" && pixel_is_not $((vx + 10)) $((vy + 10)) "255 255 255" &&
    pixel_is_not $((vx + 150)) $((vy + 100)) "255 255 255"
}
expect_box() {
  xdotool mousemove 5 5
  shot_until 10 shows_box
  keep_shot "$1"
  shows_box || fail "the view does not show the box ($1): inside $(pixel $((vx + 60)) $((vy + 55))), outside $(pixel $((vx + 10)) $((vy + 10)))"
}

# A second picture for the file laid out by hand.
new_document 180 140
wait_view 180x140
read -r vx vy _ _ <<<"$(screen_rect "${VIEW}\"\" 180x140 ")"
keys ctrl+e
enter_name "$OPEN" "$FOLDER\\box.tss"
expect_box loaded

keys ctrl+q
enter_name "$SAVE_AS" "$FOLDER\\copy"
wait_until 20 test -s "$DIST/copy.tss"
cmp "$DIST/box.tss" "$DIST/copy.tss" || fail "the saved selection differs from the file it was loaded from"

new_document 80 60
wait_view 80x60
read -r vx vy _ _ <<<"$(screen_rect "${VIEW}\"\" 80x60 ")"
keys ctrl+e
enter_name "$OPEN" "$FOLDER\\copy.tss"
# The box reaches past the smaller picture: its part inside stays white.
shows_box() {
  pixel_is $((vx + 60)) $((vy + 45)) "255 255 255" && pixel_is $((vx + 79)) $((vy + 59)) "255 255 255" &&
    pixel_is_not $((vx + 10)) $((vy + 10)) "255 255 255"
}
expect_box second_picture
