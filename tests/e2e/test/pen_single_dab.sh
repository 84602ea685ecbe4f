# Shift and a click with the pen paint one dab at the click, and only
# there; the button held down and moved paints nothing more.
. "$(dirname "$0")/../lib.sh"

open_picture 200 150
shift_drag "$((vx + 100)),$((vy + 75))" "$((vx + 130)),$((vy + 75))" "$((vx + 150)),$((vy + 100))"
xdotool mousemove 5 5
shot
keep_shot pen-single-dab

box=$(not_white_box $vx $vy 200 150)
[ -n "$box" ] || fail "no dab at all"
read -r w h x y <<<"${box//[x+]/ }"
[ $x -ge 96 ] && [ $y -ge 71 ] && [ $((x + w)) -le 105 ] && [ $((y + h)) -le 80 ] ||
  fail "the dab covers $box, not the click at 100,75 alone"
