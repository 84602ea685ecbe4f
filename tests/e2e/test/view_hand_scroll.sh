# The picture follows the pointer while Space and the left button are
# held, and so with the middle button alone; Space and the right button
# dragged to the right zoom in a step for each 21 pixels or more.
. "$(dirname "$0")/../lib.sh"

start_tesel
new_document 640 480
wait_for '^4 CanvWndDispClass#0 "" 640x480 '
pointer_off_documents
keys ctrl+t ctrl+t
wait_for '^4 CanvWndDispClass#0 "" 1280x960 '
read -r fx fy fw fh <<<"$(screen_rect '^3 CanvWndClass#9 ')"
mx=$((fx + fw / 2)) my=$((fy + fh / 2))

# The view stands at x, y within five seconds.
stands_at() {
  local end=$((SECONDS + 5)) x y
  while :; do
    read -r x y _ _ <<<"$(view_rect)"
    [ "$x $y" = "$1 $2" ] && return
    [ $SECONDS -lt $end ] || fail "the view stands at $x,$y, not $1,$2 ($3)"
    sleep 0.1
  done
}
# Drags with a button from the middle of the window by dx, dy in four
# steps; the picture follows the pointer at each.
follows() {
  local button=$1 dx=$2 dy=$3 i x0 y0
  read -r x0 y0 _ _ <<<"$(view_rect)"
  xdotool mousemove $mx $my mousedown "$button"
  for i in 1 2 3 4; do
    xdotool mousemove $((mx + dx * i / 4)) $((my + dy * i / 4))
    stands_at $((x0 + dx * i / 4)) $((y0 + dy * i / 4)) "$4, step $i"
  done
  xdotool mouseup "$button"
}

xdotool keydown space
follows 1 -100 -60 "Space and the left button"
xdotool keyup space
follows 2 60 40 "the middle button"

# Each move of 25 to the right is a step in: 200 % to 300 % to 400 %.
xdotool keydown space
xdotool mousemove $mx $my mousedown 3
xdotool mousemove $((mx + 25)) $my
wait_for '^4 CanvWndDispClass#0 "" 1920x1440 ' 5
xdotool mousemove $((mx + 50)) $my
wait_for '^4 CanvWndDispClass#0 "" 2560x1920 ' 5
xdotool mouseup 3 keyup space
