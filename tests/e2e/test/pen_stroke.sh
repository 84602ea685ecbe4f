# A drag of the pen over a new picture paints along the path and nowhere
# else; Ctrl+Z makes the picture white again.
. "$(dirname "$0")/../lib.sh"

start_tesel
new_document 200 150
wait_for '^4 CanvWndDispClass#0 "" 200x150 '
read -r vx vy _ _ <<<"$(view_rect)"
path=()
for x in $(seq 40 10 160); do path+=("$((vx + x)),$((vy + 40))"); done
for y in $(seq 50 10 110); do path+=("$((vx + 160)),$((vy + y))"); done
drag "${path[@]}"
xdotool mousemove 5 5  # the pen's outline leaves with the pointer
shot
keep_shot pen-stroke

# Position smoothing rounds the corner, so the last check across stops short of it.
for x in 40 75 100 125; do
  [ "$(pixel $((vx + x)) $((vy + 40)))" != "255 255 255" ] || fail "no paint at $x,40"
done
for y in 60 85 105; do
  [ "$(pixel $((vx + 160)) $((vy + y)))" != "255 255 255" ] || fail "no paint at 160,$y"
done
# The paint lies within a few pixels of the path, 40..160 across and
# 40..110 down, and not inside the corner it turns.
box=$(not_white_box $vx $vy 200 150)
[ -n "$box" ] || fail "no paint at all"
read -r w h x y <<<"$(echo "$box" | tr 'x+' '  ')"
[ $x -ge 36 ] && [ $y -ge 36 ] && [ $((x + w)) -le 165 ] && [ $((y + h)) -le 115 ] &&
  [ $w -ge 120 ] && [ $h -ge 70 ] || fail "paint covers $box, not the path"
inside=$(not_white_box $((vx + 45)) $((vy + 55)) 90 50)
[ -z "$inside" ] || fail "paint inside the turn at $inside"

keys ctrl+z
shot
left=$(not_white_box $vx $vy 200 150)
[ -z "$left" ] || fail "after Undo the picture still has $left painted"
