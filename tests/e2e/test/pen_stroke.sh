# A drag of the pen over a new picture paints along the path and nowhere
# else; Ctrl+Z makes the picture white again.
. "$(dirname "$0")/../lib.sh"

open_picture 200 150
paint_through "$((vx + 40)),$((vy + 40))" "$((vx + 160)),$((vy + 40))" "$((vx + 160)),$((vy + 110))"
xdotool mousemove 5 5  # the pen's outline leaves with the pointer

# The paint lies within a few pixels of the path, 40..160 across and
# 40..110 down.
along_path() {
  box=$(not_white_box $vx $vy 200 150)
  [ -n "$box" ] || return 1
  read -r w h x y <<<"${box//[x+]/ }"
  [ $x -ge 36 ] && [ $y -ge 36 ] && [ $((x + w)) -le 165 ] && [ $((y + h)) -le 115 ] &&
    [ $w -ge 120 ] && [ $h -ge 70 ]
}
shot_until 5 along_path
keep_shot pen-stroke
[ -n "$box" ] || fail "no paint at all"
along_path || fail "paint covers $box, not the path"
for x in 40 75 100 125 155; do
  [ "$(pixel $((vx + x)) $((vy + 40)))" != "255 255 255" ] || fail "no paint at $x,40"
done
for y in 45 60 85 105; do
  [ "$(pixel $((vx + 160)) $((vy + y)))" != "255 255 255" ] || fail "no paint at 160,$y"
done
# Nothing inside the corner it turns.
inside=$(not_white_box $((vx + 45)) $((vy + 55)) 90 50)
[ -z "$inside" ] || fail "paint inside the turn at $inside"

keys ctrl+z
white() { [ -z "$(not_white_box $vx $vy 200 150)" ]; }
shot_until 10 white
white || fail "after Undo the picture still has $(not_white_box $vx $vy 200 150) painted"
