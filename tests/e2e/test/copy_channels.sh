# Image > Copy between Channels on a white picture: the dialog offers Red
# to Red first; with Inverted Copy the red of every pixel becomes 0, and the
# view turns cyan. Undo brings the white back.
. "$(dirname "$0")/../lib.sh"

cyan="0 255 255"
white="255 255 255"

open_picture 640 480
keys alt+i n  # Copy between Cha&nnels...
wait_for "$(dialog "Copy between Channels")"
dialog_keys alt+i  # &Inverted Copy
answer "$(dialog "Copy between Channels")" Return

view_is() { pixel_is $((vx + 100)) $((vy + 100)) "$1" && pixel_is $((vx + 600)) $((vy + 400)) "$1"; }
shot_until 10 view_is "$cyan"
keep_shot inverted-red
expect_pixel $((vx + 100)) $((vy + 100)) "$cyan" "red copied inverted over itself"
expect_pixel $((vx + 600)) $((vy + 400)) "$cyan" "everywhere, with no selection"

keys ctrl+z
shot_until 10 view_is "$white"
expect_pixel $((vx + 300)) $((vy + 200)) "$white" "undone"
