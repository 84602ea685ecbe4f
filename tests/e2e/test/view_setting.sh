# View Setting hides the status bar at once; the choice is saved at exit
# and holds at the next start.
. "$(dirname "$0")/../lib.sh"

status_bar_offset=12
start_tesel
wait_for '^1 StatusBarClass#2 '
keys alt+v Return
wait_for '^0 #32770#0 "View Setting"'
dialog_keys Tab space Return
wait_gone '^0 #32770#0 "View Setting"'
wait_gone '^1 StatusBarClass#2 '
probe | grep -q '^1 ToolBarClass#3 ' || fail "the tool bar went too"
keys alt+F4
wait_exit
[ "$(word_at "$DIST/env__.env" $status_bar_offset)" -eq 0 ] || fail "statusBarOn was not saved as 0"

start_tesel
sleep 1
probe | grep -q '^1 StatusBarClass#2 ' && fail "the status bar came back at the next start"
probe | grep -q '^1 MDIClient#1 ' || fail "no MDI client"
