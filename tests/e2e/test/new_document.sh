# New with 640 x 480: one document titled by string 1102 with the
# accuracy, the plane and the file name, its view at the canvas size.
. "$(dirname "$0")/../lib.sh"

start_tesel
new_document 640 480
wait_for "${DOCUMENT}[0-9]+ \"Standard Accuracy \[LAYER0\] of Untitled\""
[ "$(document_count)" -eq 1 ] || fail "expected one document"
[ "$(view_size)" = 640x480 ] || fail "view is $(view_size), not 640x480"
wait_gone "$SPLASH"
shot
keep_shot frame-with-document
