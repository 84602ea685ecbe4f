# F7 shows the settings panel with its Selection History page; choosing an
# entry of the list puts that selection on the picture (what lies outside
# it darkens) and renames its file to the present time, its number kept.
. "$(dirname "$0")/../lib.sh"

# An entry of an earlier session: the box (20, 30) - (99, 79), number 3.
mkdir -p "$DIST/selhist"
box_selection_file 20 30 99 79 >"$DIST/selhist/20200101000000_0003.hst"

open_picture 200 150
keys F7
PANEL='^0 #32770#0 "Settings" '
wait_for "$PANEL"
has_window '^1 SysTabControl32#1000 ' || fail "the panel has no tabs"
read -r lx ly _ _ <<<"$(screen_rect '^2 ListBox#100 ')"
[ -n "$lx" ] || fail "the Selection History page has no list"
xdotool mousemove $((lx + 20)) $((ly + 6)) click 1

shows_box() {
  pixel_is $((vx + 60)) $((vy + 55)) "255 255 255" && pixel_is_not $((vx + 10)) $((vy + 10)) "255 255 255"
}
renamed() { [ ! -e "$DIST/selhist/20200101000000_0003.hst" ] && ls "$DIST/selhist" | grep -Eq '^20[0-9]{12}_0003\.hst$'; }
wait_until 10 renamed

# F7 again hides the panel, and the view shows the recalled box.
keys F7
wait_gone "$PANEL"
xdotool mousemove 5 5
shot_until 10 shows_box
keep_shot recalled
shows_box || fail "the recalled box does not show: inside $(pixel $((vx + 60)) $((vy + 55))), outside $(pixel $((vx + 10)) $((vy + 10)))"
