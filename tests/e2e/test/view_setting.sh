# View Setting hides the status bar at once; the choice is saved at exit
# and holds at the next start.
. "$(dirname "$0")/../lib.sh"

status_bar_offset=12
start_tesel
wait_for "$STATUS_BAR"
view_menu 0
answer "$(dialog 'View Setting')" Tab space Return
wait_gone "$STATUS_BAR"
has_window "$TOOL_BAR" || fail "the tool bar went too"
keys alt+F4
wait_exit
[ "$(word_at "$DIST/env__.env" $status_bar_offset)" -eq 0 ] || fail "statusBarOn was not saved as 0"

start_tesel
# The frame lays out the status bar before the MDI client.
wait_for "$MDI_CLIENT"
no_window "$STATUS_BAR" || fail "the status bar came back at the next start"
