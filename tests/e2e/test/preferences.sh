# Preference opens centred on the frame; its pages write the live settings,
# which are saved at exit: the Undo page's count and its FreeHand box.
. "$(dirname "$0")/../lib.sh"

undo_count_offset=364196
restrain_offset=364200
preference=$(dialog Preference)
start_tesel
view_menu 1
wait_for "$preference"
# The sheet stands in the middle of the frame.
read -r sx sy sw sh <<<"$(screen_rect "$preference")"
read -r fx fy fw fh <<<"$(screen_rect "$MAIN_WINDOW")"
dx=$((2 * sx + sw - 2 * fx - fw)) dy=$((2 * sy + sh - 2 * fy - fh))
[ ${dx#-} -le 2 ] && [ ${dy#-} -le 2 ] ||
  fail "the sheet at $sx,$sy ${sw}x$sh is not centred on the frame at $fx,$fy ${fw}x$fh"
# From the first page's first field back to the tabs, two pages on.
dialog_keys shift+Tab Right Right
wait_for '^1 #32770#0 "Undo"'
dialog_keys Tab
type_text 7
wait_for '^2 Edit#121 "7" '
answer "$preference" Tab space Return
keys alt+F4
wait_exit
[ "$(word_at "$DIST/env__.env" $undo_count_offset)" -eq 7 ] || fail "undoCount was not saved as 7"
[ "$(word_at "$DIST/env__.env" $restrain_offset)" -eq 1 ] || fail "Restrain during FreeHand was not saved"
