# Resize... from the LAYER page opens the sides' dialog beside the picture;
# its box follows the amount typed, and OK on the base layer grows the
# canvas to the left by that much, with the stroke kept over its pixels.
. "$(dirname "$0")/../lib.sh"

open_picture 200 150
paint_through "$((vx + 20)),$((vy + 40))" "$((vx + 120)),$((vy + 40))"
show_layer_page
wait_until 10 layer_rows_are 1

layer_menu r
wait_for "$(dialog Resize)"
dialog_keys space Tab
type_text 50
shot
keep_shot resize-box
answer "$(dialog Resize)" Return
wait_view 250x150
shot
keep_shot resized
# The view keeps its place in the window: the stroke stands 50 pixels
# further right on the screen, and white fills what it left.
[ -z "$(not_white_box "$vx" "$vy" 50 100)" ] || fail "the new space on the left isn't white"
pixel_is_not $((vx + 50 + 30)) $((vy + 40)) "255 255 255" ||
  fail "the stroke didn't move with the canvas's origin"
