# The LAYER page: Edit > Duplicate adds a row, paint on the new layer shows
# in its thumbnail, its eye hides and shows it again, a drag of its row
# onto the base puts it under the white copy, and the planes' button gives
# the masks rows of their own.
. "$(dirname "$0")/../lib.sh"

open_picture 200 150
show_layer_page
wait_until 10 layer_rows_are 1

layer_menu Down Down Down Return  # Add..., Delete..., Duplicate
wait_until 10 layer_rows_are 2
document_titles | grep -q '\[LAYER1\]' || fail "the title names another plane: $(document_titles)"
read -r r0x r0y r1x r1y <<<"$(layer_rows | xargs)"
[ "$r1y" -eq $((r0y + 32)) ] || fail "the rows stand at $r0y and $r1y, not 32 apart"

# The copy is active: the stroke goes onto it, and its thumbnail (the
# picture fills the 32 x 24 box) shows it while the base's stays white.
paint_through "$((vx + 40)),$((vy + 40))" "$((vx + 160)),$((vy + 100))"
xdotool mousemove 5 5
thumbnail_painted() { [ -n "$(not_white_box $(($1 + 65)) $(($2 + 1)) 30 22)" ]; }
shot_until 10 thumbnail_painted "$r1x" "$r1y"
keep_shot layer-page-painted
thumbnail_painted "$r1x" "$r1y" || fail "the thumbnail of the painted layer stays white"
! thumbnail_painted "$r0x" "$r0y" || fail "the base's thumbnail shows paint"

# The eye hides the layer: the picture is white, and the row steps in.
view_white() { [ -z "$(not_white_box $vx $vy 200 150)" ]; }
view_painted() { ! view_white; }
point_at $((r1x + 52)) $((r1y + 6))
xdotool click 1
shot_until 10 view_white
keep_shot layer-page-hidden
view_white || fail "the hidden layer still shows $(not_white_box $vx $vy 200 150)"
read -r _ _ h1x _ <<<"$(layer_rows | xargs)"
[ "$h1x" -eq $((r1x + 10)) ] || fail "the hidden layer's row stands at $h1x, not $((r1x + 10))"
# Its eye moved back by as much: the same point shows it again.
xdotool click 1
shot_until 10 view_painted
view_painted || fail "the layer shown again is not in the picture"

# Dragged onto the base's row, the painted layer goes under the white copy.
drag "$((r1x + 5)),$((r1y + 5))" "$((r1x + 5)),$((r1y - 10))" "$((r0x + 5)),$((r0y + 5))"
shot_until 10 view_white
view_white || fail "after the move the picture shows $(not_white_box $vx $vy 200 150)"
layer_rows_are 2 || fail "after the move there are $(layer_rows | wc -l) rows"
shot_until 10 thumbnail_painted "$r0x" "$r0y"
keep_shot layer-page-moved
thumbnail_painted "$r0x" "$r0y" || fail "the top row's thumbnail isn't the painted layer's"
! thumbnail_painted "$r1x" "$r1y" || fail "the white copy's thumbnail shows paint"

# Every plane but the transparency: each layer's mask gets a row, set in.
read -r sx sy _ _ <<<"$(screen_rect '^3 Button#115 ')"
point_at $((sx + 10)) $((sy + 8))
xdotool click 1
wait_until 10 layer_rows_are 4
read -r _ _ m0x m0y _ _ m1x m1y <<<"$(layer_rows | xargs)"
[ "$m0x,$m0y,$m1x,$m1y" = "$((r0x + 14)),$((r0y + 32)),$((r0x + 14)),$((r0y + 96))" ] ||
  fail "the masks' rows stand at $m0x,$m0y and $m1x,$m1y"
# A new mask holds zeros: its thumbnail is black once made, the last one too.
shot_until 10 pixel_is $((m1x + 80)) $((m1y + 12)) "0 0 0"
keep_shot layer-page-planes
expect_pixel $((m0x + 80)) $((m0y + 12)) "0 0 0" "the first mask's thumbnail"
expect_pixel $((m1x + 80)) $((m1y + 12)) "0 0 0" "the second mask's thumbnail"
