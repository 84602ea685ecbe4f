# A polygon drawn by clicks and ended by a right click shows its outline,
# at 100 % and at 400 %, and Deselect takes it away.
. "$(dirname "$0")/../lib.sh"

open_picture 200 150
send_command 20004
click_at() {
  point_at "$1" "$2"
  xdotool click "$3"
  sleep 0.3
}
click_at $((vx + 40)) $((vy + 30)) 1
click_at $((vx + 160)) $((vy + 30)) 1
click_at $((vx + 160)) $((vy + 120)) 1
click_at $((vx + 40)) $((vy + 120)) 3
xdotool mousemove 5 5
# Dotted edges: each stretch of a few pixels along an edge has dark ones.
edges() {
  [ -n "$(not_white_box $((vx + 95)) $((vy + 29)) 10 3)" ] &&
    [ -n "$(not_white_box $((vx + 159)) $((vy + 70)) 3 10)" ] &&
    [ -n "$(not_white_box $((vx + 95)) $((vy + 119)) 10 3)" ] &&
    [ -n "$(not_white_box $((vx + 39)) $((vy + 70)) 3 10)" ]
}
shot_until 10 edges
keep_shot polygon-100
edges || fail "the polygon's edges show no outline"
[ -z "$(not_white_box $((vx + 50)) $((vy + 40)) 100 70)" ] || fail "marks inside the polygon"

pointer_off_documents
keys ctrl+t ctrl+t ctrl+t ctrl+t
wait_view 800x600
# What the frame shows of the view, less its scroll bars.
read -r zx zy zw zh <<<"$(view_rect)"
read -r fx fy fw fh <<<"$(screen_rect "$VIEW_FRAME")"
x0=$((zx > fx ? zx : fx)) y0=$((zy > fy ? zy : fy))
x1=$((zx + zw < fx + fw - 18 ? zx + zw : fx + fw - 18))
y1=$((zy + zh < fy + fh - 18 ? zy + zh : fy + fh - 18))
fx=$x0 fy=$y0 fw=$((x1 - x0)) fh=$((y1 - y0))
marked() { [ -n "$(not_white_box $fx $fy $fw $fh)" ]; }
shot_until 10 marked
keep_shot polygon-400
marked || fail "no outline at 400 %"

send_command 20500
clean() { [ -z "$(not_white_box $fx $fy $fw $fh)" ]; }
shot_until 10 clean
keep_shot polygon-deselected
clean || fail "the outline stays after Deselect: $(not_white_box $fx $fy $fw $fh)"
