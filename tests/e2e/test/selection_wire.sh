# The wire follows the edge of a dark stroke down to a click and along the
# bottom to another; with Shift a click puts a point that follows the
# pointer in a straight line, and a right click closes the shape. Its
# outline shows along the bottom, the straight side and the closing side,
# and leaves the inside clear.
. "$(dirname "$0")/../lib.sh"

open_picture 200 150
send_command 20005
drag "$((vx + 100)),$((vy + 10))" "$((vx + 100)),$((vy + 60))" "$((vx + 100)),$((vy + 140))"
xdotool mousemove 5 5
stroked() { pixel_is_not $((vx + 100)) $((vy + 75)) "255 255 255"; }
shot_until 10 stroked
stroked || fail "no stroke to follow"

send_command 20009
click_at() {
  point_at "$1" "$2"
  xdotool click "$3"
  sleep 0.3
}
click_at $((vx + 92)) $((vy + 20)) 1
point_at $((vx + 92)) $((vy + 70))
point_at $((vx + 92)) $((vy + 120))
click_at $((vx + 92)) $((vy + 120)) 1
point_at $((vx + 30)) $((vy + 120))
click_at $((vx + 30)) $((vy + 120)) 1
xdotool keydown shift
click_at $((vx + 30)) $((vy + 120)) 1
click_at $((vx + 40)) $((vy + 40)) 1
xdotool keyup shift
click_at $((vx + 40)) $((vy + 40)) 3
xdotool mousemove 5 5
sides() {
  [ -n "$(not_white_box $((vx + 45)) $((vy + 112)) 20 12)" ] &&
    [ -n "$(not_white_box $((vx + 30)) $((vy + 75)) 10 10)" ] &&
    [ -n "$(not_white_box $((vx + 60)) $((vy + 24)) 16 10)" ]
}
shot_until 10 sides
keep_shot wire
sides || fail "no outline on the wire's bottom, straight or closing side"
[ -z "$(not_white_box $((vx + 55)) $((vy + 60)) 25 35)" ] || fail "marks inside the wire's shape"
[ -z "$(not_white_box $((vx + 130)) $((vy + 20)) 60 110)" ] || fail "marks right of the stroke"
