# The New dialog keeps pixels, lengths and resolution consistent, and OK
# makes the canvas of the pixels shown. Expected values by hand:
#   640 px at 96 dpi      = 640 x 25.4 / 96       = 169.33 mm
#   100 mm at 96 dpi      = trunc(96 x 100 x 0.03937008 + 0.5) = 378 px
#   378 px at 300 dpi     = 378 x 25.4 / 300      = 32.00 mm
#   480 px at 300 dpi     = 480 x 25.4 / 300      = 40.64 mm
. "$(dirname "$0")/../lib.sh"

width=101 height=102 length_width=104 length_height=106 dpi=111
new=$(dialog New)
start_tesel
keys ctrl+n
wait_for "$new"
[ "$(field $dpi)" = 96 ] || fail "the first New of a run opens at $(field $dpi) dpi"
type_text 640
dialog_keys Tab
type_text 480
[ "$(field $length_width)" = 169.33 ] || fail "640 px gave $(field $length_width) mm"
dialog_keys Tab Tab
type_text 100
[ "$(field $width)" = 378 ] || fail "100 mm gave $(field $width) px"
dialog_keys Tab Tab Tab Tab
type_text 300
[ "$(field $length_width)" = 32.00 ] || fail "378 px at 300 dpi gave $(field $length_width) mm"
[ "$(field $length_height)" = 40.64 ] || fail "480 px at 300 dpi gave $(field $length_height) mm"
[ "$(field $width)" = 378 ] || fail "a new resolution changed the pixels to $(field $width)"
answer "$new" Return
wait_view 378x480

# The next opening of the run keeps the size and the resolution.
keys ctrl+n
wait_for "$new"
[ "$(field $width)x$(field $height)@$(field $dpi)" = 378x480@300 ] ||
  fail "New reopened with $(field $width)x$(field $height)@$(field $dpi)"
answer "$new" Escape
[ "$(document_count)" -eq 1 ] || fail "Cancel made a document"
