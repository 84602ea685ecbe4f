# A drag that reaches the edge of the window scrolls the view along: the
# frame of Smooth Zoom, dragged over the right edge of a picture larger
# than its window, takes the view to its right end, and dragged over the
# bottom edge to its bottom.
. "$(dirname "$0")/../lib.sh"

open_large_picture
read -r _ vy _ _ <<<"$(view_rect)"
mx=$((fx + fw / 2)) my=$((fy + fh / 2))

keys shift+F2
answer "$(dialog 'Smooth Zoom')" Return

# How far the view's right or bottom edge stands from its end, where the
# picture's edge meets the window's with the margin and the scroll bar
# between.
gap_right() { read -r x _ _ _ <<<"$(view_rect)"; echo $((x + 1280 + 8 + 16 - fx - fw)); }
gap_bottom() { read -r _ y _ _ <<<"$(view_rect)"; echo $((y + 960 + 8 + 16 - fy - fh)); }
at_end() { local gap; gap=$($1); [ ${gap#-} -le 2 ]; }

# A press anywhere on the picture takes the frame along; the pointer goes
# beyond an edge and is held there until the view has come to its end.
hold_beyond() {
  xdotool mousemove $mx $my mousedown 1
  sleep 0.3  # the press is taken before the pointer moves
  xdotool mousemove "$1" "$2"
  poll_until 10 at_end "$3" || true
  xdotool mouseup 1
  sleep 0.3  # the release is taken before the view is read again
  at_end "$3" || fail "the view stands $($3) from its end ($3)"
}

hold_beyond $((fx + fw + 20)) $my gap_right
read -r x y _ _ <<<"$(view_rect)"
[ "$y" = "$vy" ] || fail "the view moved down, to $y from $vy"
hold_beyond $mx $((fy + fh + 20)) gap_bottom
read -r x2 _ _ _ <<<"$(view_rect)"
[ "$x2" = "$x" ] || fail "the view moved across, to $x2 from $x"
xdotool mousemove 5 5
shot
keep_shot scrolled
