# Closing a modified, untitled picture asks first, and Yes saves it through
# the Save dialog; a name in Japanese saves and opens again.
. "$(dirname "$0")/../lib.sh"

start_tesel
new_document 100 80
wait_documents 1
# Negative, the last item of the Paint menu, modifies the picture.
keys alt+p Up Return
keys ctrl+F4
answer '"Save changes to the file\?"' y
wait_for "$SAVE_AS"
enter_name "$SAVE_AS" "$FOLDER\\絵日記"
wait_until 20 test -s "$DIST/絵日記.tsl"
wait_documents 0

open_file "$FOLDER\\絵日記.tsl"
wait_for "${DOCUMENT}[0-9]+ \"[^\"]*絵日記.tsl\""
wait_view 100x80
read -r vx vy _ _ <<<"$(view_rect)"
# Negative made the white picture black.
black() { pixel_is $((vx + 50)) $((vy + 40)) "0 0 0"; }
shot_until 10 black
keep_shot japanese-name
black || fail "the reopened picture is $(pixel $((vx + 50)) $((vy + 40))), not black"
