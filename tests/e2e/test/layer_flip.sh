# Flip Horizontally from the Image menu mirrors a stroke across the
# picture; Undo brings it back, and Duplicate opens a second picture.
. "$(dirname "$0")/../lib.sh"

open_picture 200 150
paint_through "$((vx + 20)),$((vy + 30))" "$((vx + 60)),$((vy + 30))" "$((vx + 60)),$((vy + 100))"
xdotool mousemove 5 5

# The paint lies within a few pixels of 20..60 across, or of 139..179 once
# mirrored (column x goes to 199 - x).
paint_between() {
  box=$(not_white_box $vx $vy 200 150)
  [ -n "$box" ] || return 1
  read -r w h x y <<<"${box//[x+]/ }"
  [ $x -ge $(($1 - 5)) ] && [ $((x + w)) -le $(($2 + 5)) ] && [ $y -ge 25 ] &&
    [ $((y + h)) -le 105 ]
}
shot_until 5 paint_between 20 60
paint_between 20 60 || fail "the stroke covers $box"

keys alt+i h
shot_until 10 paint_between 139 179
keep_shot layer-flip
paint_between 139 179 || fail "after the flip the paint covers $box, not 139..179"
[ "$(pixel $((vx + 139)) $((vy + 60)))" != "255 255 255" ] || fail "no paint at 139,60"
[ "$(pixel $((vx + 60)) $((vy + 60)))" = "255 255 255" ] || fail "paint left at 60,60"

keys ctrl+z
shot_until 10 paint_between 20 60
paint_between 20 60 || fail "after Undo the paint covers $box"

# Duplicate: the tenth item of the Image menu.
keys alt+i Down Down Down Down Down Down Down Down Down Return
wait_documents 2
