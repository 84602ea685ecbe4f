# A modified picture asks string 1404 before it closes, and Cancel keeps
# it; closing the frame then writes the settings all the same and leaves
# frame and picture open.
. "$(dirname "$0")/../lib.sh"

save_changes='"Save changes to the file\?"'
start_tesel
new_document 100 80
wait_documents 1
# Negative, the last item of the Paint menu, modifies the picture.
keys alt+p Up Return
keys ctrl+F4
answer "$save_changes" Escape
[ "$(document_count)" -eq 1 ] || fail "Cancel did not keep the document"

[ ! -e "$DIST/env__.env" ] || fail "env__.env was there before closing"
keys alt+F4
wait_for "$save_changes"
[ -e "$DIST/env__.env" ] || fail "the settings were not written before the question"
answer "$save_changes" Escape
wait_for "$MAIN_WINDOW"
[ "$(document_count)" -eq 1 ] || fail "Cancel at the frame's close lost the document"
