# The Image menu's duplicates ask for their size and angle in the layer
# dialogs: a resized duplicate keeps the proportions as the width is typed,
# a rotated one turns a quarter, and one on a resized canvas grows on the
# side that is checked. Each duplicate becomes the active picture.
. "$(dirname "$0")/../lib.sh"

# The item of the Image menu so many places below its first.
image_menu() {
  local moves=() i
  for ((i = 0; i < $1; i++)); do moves+=(Down); done
  keys alt+i "${moves[@]}" Return
}

# The New Height field of Make Resized Duplicate.
height_is() { [ "$(field 3473)" = "$1" ]; }

open_picture 200 150

image_menu 10
wait_for "$(dialog 'Make Resized Duplicate')"
type_text 100
wait_until 5 height_is 75
answer "$(dialog 'Make Resized Duplicate')" Return
wait_documents 2
wait_view 100x75

image_menu 11
wait_for "$(dialog Rotate)"
answer "$(dialog Rotate)" Return
wait_documents 3
wait_view 75x100

image_menu 12
wait_for "$(dialog 'Duplicate on Resized Canvas')"
dialog_keys space Tab
type_text 50
answer "$(dialog 'Duplicate on Resized Canvas')" Return
wait_documents 4
wait_view 125x100
