# A polygon drawn by clicks and ended by a right click shows its dotted
# outline, at 100 % and at 400 %, and Deselect takes it away.
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
click_at $((vx + 40)) $((vy + 120)) 1
click_at $((vx + 100)) $((vy + 140)) 3  # the rubber point closes on the first
xdotool mousemove 5 5

# Whether a screen rectangle "<x> <y> <width> <height>" of the last
# screenshot holds a dark pixel: the outline inverts the white inside and
# the grey outside shading alike.
dark_in() {
  local least
  least=$(convert "$SHOT.png" -crop "${3}x${4}+${1}+${2}" +repage -colorspace gray \
    -format '%[fx:int(minima.r*255)]' info:)
  [ "$least" -lt 90 ]
}
edges() {
  dark_in $((vx + 95)) $((vy + 30)) 10 1 && dark_in $((vx + 160)) $((vy + 70)) 1 10 &&
    dark_in $((vx + 95)) $((vy + 120)) 10 1 && dark_in $((vx + 40)) $((vy + 70)) 1 10
}
shot_until 10 edges
keep_shot polygon-100
edges || fail "the polygon's edges show no outline"
[ -z "$(not_white_box $((vx + 45)) $((vy + 35)) 110 80)" ] || fail "marks inside the polygon"
! dark_in $((vx + 100)) $((vy + 131)) 30 10 || fail "the right click added a point"

pointer_off_documents
keys ctrl+t ctrl+t ctrl+t ctrl+t
wait_view 800x600
# What the frame shows of the view, less its scroll bars.
read -r zx zy zw zh <<<"$(view_rect)"
read -r fx fy fw fh <<<"$(screen_rect "$VIEW_FRAME")"
x0=$((zx > fx ? zx : fx)) y0=$((zy > fy ? zy : fy))
x1=$((zx + zw < fx + fw - 18 ? zx + zw : fx + fw - 18))
y1=$((zy + zh < fy + fh - 18 ? zy + zh : fy + fh - 18))
shown() { dark_in $x0 $y0 $((x1 - x0)) $((y1 - y0)); }
shot_until 10 shown
keep_shot polygon-400
shown || fail "no outline at 400 %"

# Scrolled down as far as it goes, the outline goes with the picture and
# leaves nothing behind: the inside stays white, the bottom edge stands on
# the middle of canvas row 120.
point_at $(((x0 + x1) / 2)) $(((y0 + y1) / 2))
for _ in 1 2 3; do
  xdotool keydown ctrl click 5 keyup ctrl
  sleep 0.2
done
moved() { [ "$(view_rect | cut -d' ' -f2)" -lt "$zy" ]; }
wait_until 10 moved
sleep 1
read -r zx zy _ _ <<<"$(view_rect)"
xdotool mousemove 5 5
inside_clean() {
  local top=$((zy + 126 > y0 ? zy + 126 : y0))
  [ -z "$(not_white_box $((zx + 166)) $top 468 $((zy + 476 - top)))" ]
}
scrolled() { dark_in $((zx + 300)) $((zy + 481)) 40 3 && inside_clean; }
shot_until 10 scrolled
keep_shot polygon-400-scrolled
dark_in $((zx + 300)) $((zy + 481)) 40 3 || fail "no bottom edge where it belongs after the scroll"
inside_clean || fail "marks inside the polygon after the scroll"

send_command 20500
gone() { ! shown; }
shot_until 10 gone
keep_shot polygon-deselected
gone || fail "the outline stays after Deselect"
