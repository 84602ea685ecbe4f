# A stroke saved in the native file comes back when the file is opened
# again, after the picture was closed (the Open dialog tells its size and
# layers first); saving over the file asks first, and
# No keeps it as it was; a save into a folder that has vanished says so and
# leaves the file where it went.
. "$(dirname "$0")/../lib.sh"

[ -e "$DIST/file_w/tsl.dll" ] && [ -e "$DIST/file_r/tsl.dll" ] || fail "no tsl plug-in in the program folder"
open_picture 200 150
paint_through "$((vx + 30)),$((vy + 50))" "$((vx + 170)),$((vy + 50))"
xdotool mousemove 5 5
painted() { [ -n "$(not_white_box $vx $vy 200 150)" ]; }
shot_until 5 painted
before=$(not_white_box $vx $vy 200 150)
[ -n "$before" ] || fail "the stroke did not paint"

keys ctrl+shift+s
wait_for "$SAVE_AS"
# The Save dialog has the Open dialog's lines below it, but no catalog.
has_window '^2 Static#104 ' && no_window '^2 Button#101 ' || fail "the Save dialog's hook is not as it should be"
enter_name "$SAVE_AS" "$FOLDER\\drawing"
wait_until 20 test -s "$DIST/drawing.tsl"
wait_for "${DOCUMENT}[0-9]+ \"[^\"]*drawing.tsl\""
saved_at=$(stat -c %y "$DIST/drawing.tsl")

# Over the same name: the question, and No leaves the file alone.
save_as "$FOLDER\\drawing"
answer '"Overwrite the file\?"' n
[ "$(stat -c %y "$DIST/drawing.tsl")" = "$saved_at" ] || fail "No changed the file"

# Saved into a folder that then goes away: Save tells of the failure.
mkdir "$DIST/away"
save_as "$FOLDER\\away\\drawing"
wait_until 20 test -s "$DIST/away/drawing.tsl"
mv "$DIST/away" "$DIST/gone"
keys ctrl+s
answer '"Saving file failed!"' Return
[ -s "$DIST/gone/drawing.tsl" ] && [ ! -e "$DIST/away" ] || fail "the failed save touched the files"

keys ctrl+F4
wait_documents 0
# Chosen in the Open dialog's list, the file tells its size, colours and
# layers below it before it opens.
keys ctrl+o
wait_for "$OPEN"
type_text "$FOLDER\\"
dialog_keys Return
read -r lx ly lw lh <<<"$(screen_rect 'SysListView32#1')"
xdotool mousemove $((lx + lw - 20)) $((ly + lh - 20)) click 1
xdotool type --delay 100 drawing
wait_for '^2 Static#104 "200 x 150pixels FullColor" '
has_window '^2 Static#105 "LayerCount 1" ' || fail "the Open dialog does not tell the layers"
answer "$OPEN" Return
wait_for "${DOCUMENT}[0-9]+ \"[^\"]*drawing.tsl\""
wait_view 200x150
read -r vx vy _ _ <<<"$(view_rect)"
same() { [ "$(not_white_box $vx $vy 200 150)" = "$before" ]; }
shot_until 10 same
keep_shot reopened
same || fail "reopened, the paint covers $(not_white_box $vx $vy 200 150), not $before"
