# A layer added from the LAYER page covers the stroke under it; its
# options set it to Darken and the stroke shows through; Merge with lower
# leaves one layer that looks the same, and Undo can't split it again.
. "$(dirname "$0")/../lib.sh"

open_picture 200 150
paint_through "$((vx + 40)),$((vy + 40))" "$((vx + 160)),$((vy + 100))"
show_layer_page
wait_until 10 layer_rows_are 1

middle_dark() { pixel_is_not $((vx + 100)) $((vy + 70)) "255 255 255"; }
middle_white() { ! middle_dark; }

# A new layer is white and opaque, full size by default.
layer_menu a
answer "$(dialog 'Add Layer')" Return
wait_until 10 layer_rows_are 2
shot_until 10 middle_white
middle_white || fail "the new layer doesn't cover the stroke"

# Darken: the white layer takes the darker of itself and what is under it.
layer_menu s
wait_for "$(dialog 'Layer Setting')"
dialog_keys Tab Down Down Down
shot_until 10 middle_dark
keep_shot layer-darken
answer "$(dialog 'Layer Setting')" Return
middle_dark || fail "in Darken the stroke under the layer stays hidden"

layer_menu w
answer "$(dialog 'Merge Under Layers')" Return
wait_until 10 layer_rows_are 1
shot_until 10 middle_dark
keep_shot layer-merged
middle_dark || fail "the merged picture lost the stroke"
keys ctrl+z
sleep 1
layer_rows_are 1 || fail "Undo brought back $(layer_rows | wc -l) rows"
shot
middle_dark || fail "after Undo the stroke is gone"
