# A zoom step and an undo of a gridded picture show the whole of it a
# quarter of a second later: the screenshot then is the one taken when all
# has settled, with no tiles still missing and no grey patches.
. "$(dirname "$0")/../lib.sh"

open_picture 640 480
drag "$((vx + 80)),$((vy + 400))" "$((vx + 600)),$((vy + 420))"
# The last stroke, which the undo takes away, in what the zoomed view shows.
drag "$((vx + 60)),$((vy + 60))" "$((vx + 300)),$((vy + 200))" "$((vx + 560)),$((vy + 80))"
# The grid of 16 goes over all the tiles of a repaint, so a view still
# being painted lacks it where the picture is white.
view_menu 6
answer "$(dialog Grid)" Return
pointer_off_documents

# The frame's client area at once, and again after a while. Where it stands
# is asked first: the probe takes a while to start.
read -r fx fy fw fh <<<"$(screen_rect "$VIEW_FRAME")"
frame_shot() {
  grab
  convert "$SHOT.png" -crop "$((fw - 20))x$((fh - 20))+$fx+$fy" +repage "$OUT/$1.png"
}
settles_at_once() {
  sleep 0.25
  frame_shot "$1-quarter"
  sleep 1.5
  frame_shot "$1-settled"
  local differ
  differ=$(compare -metric AE "$OUT/$1-quarter.png" "$OUT/$1-settled.png" null: 2>&1) || true
  [ "$differ" = 0 ] || fail "$1: $differ pixels of the view changed after the first quarter second"
}

keys ctrl+t
settles_at_once zoom
[ "$(view_size)" = "960x720" ] || fail "the zoom step gave a view of $(view_size), not 960x720"
keys ctrl+z
settles_at_once undo
