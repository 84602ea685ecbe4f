# The picture follows the pointer while Space and the left button are
# held, and so with the middle button alone; Space and the right button
# dragged to the right zoom in a step for each 21 pixels or more.
. "$(dirname "$0")/../lib.sh"

open_large_picture
mx=$((fx + fw / 2)) my=$((fy + fh / 2))

# Drags with a button from the middle of the window by dx, dy in four
# steps; the picture follows the pointer at each.
follows() {
  local button=$1 dx=$2 dy=$3 i x0 y0
  read -r x0 y0 _ _ <<<"$(view_rect)"
  xdotool mousemove $mx $my mousedown "$button"
  for i in 1 2 3 4; do
    xdotool mousemove $((mx + dx * i / 4)) $((my + dy * i / 4))
    wait_view_at $((x0 + dx * i / 4)) $((y0 + dy * i / 4)) "$4, step $i"
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
wait_view 1920x1440 5
xdotool mousemove $((mx + 50)) $my
wait_view 2560x1920 5
xdotool mouseup 3 keyup space
