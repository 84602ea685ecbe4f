# The wheel over a picture larger than its window: a plain turn zooms in
# or out, and the pixel under the pointer goes to the middle of the
# window (the middle of the view frame's client area, moved by the margin
# of 8); with Ctrl it scrolls a page up or down, with Shift a page left or
# right (a page is ten lines, a line 3 view pixels at 300 %).
. "$(dirname "$0")/../lib.sh"

open_large_picture
px=$((fx + fw / 3)) py=$((fy + fh / 3))
point_at $px $py
read -r vx vy _ _ <<<"$(view_rect)"
cx=$(((px - vx) / 2)) cy=$(((py - vy) / 2))  # the canvas pixel under the pointer

xdotool click 4
wait_view 1920x1440 5
read -r vx vy _ _ <<<"$(view_rect)"
# The client area is the frame less a scroll bar of some 16 pixels.
dx=$((vx + 3 * cx + 1 - fx - 8 - (fw - 16) / 2)) dy=$((vy + 3 * cy + 1 - fy - 8 - (fh - 16) / 2))
[ ${dx#-} -le 3 ] && [ ${dy#-} -le 3 ] ||
  fail "pixel $cx,$cy stands $dx,$dy from the middle of the window after the zoom"

# Each scroll moves the view by a page.
xdotool keydown ctrl click 5 keyup ctrl
wait_view_at $vx $((vy - 30)) "Ctrl and the wheel down"
xdotool keydown ctrl click 4 keyup ctrl
wait_view_at $vx $vy "Ctrl and the wheel up"
xdotool keydown shift click 5 keyup shift
wait_view_at $((vx - 30)) $vy "Shift and the wheel down"
xdotool keydown shift click 4 keyup shift
wait_view_at $vx $vy "Shift and the wheel up"

xdotool click 5
wait_view 1280x960 5
wait_readout 200%
