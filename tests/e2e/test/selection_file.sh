# A selection loaded from a ".TSS" file through Load Selection... and its
# file dialog darkens what lies outside the box; Save Selection... writes
# the same bytes back under a name typed without an extension; and that
# file brings the box onto another picture.
. "$(dirname "$0")/../lib.sh"

# A little-endian 32-bit word as bytes.
word() {
  local b
  for b in 0 8 16 24; do printf "\\x$(printf %02x $((($1 >> b) & 255)))"; done
}
# The box (20, 30) - (99, 79), laid out by hand: kind, box, then the points
# and their count, all zero, to the fixed size of 40,988 bytes.
{
  word 20001
  word 20
  word 30
  word 99
  word 79
  head -c 40968 /dev/zero
} >"$DIST/box.tss"

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

open_picture 200 150
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
