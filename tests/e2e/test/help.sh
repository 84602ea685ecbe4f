# The program folder holds the help document; without it, Help (F1) says
# which file it could not open.
. "$(dirname "$0")/../lib.sh"

grep -q '<title>Tesel Help</title>' "$DIST/tesel_help.html" || fail "no help document shipped"
rm "$DIST/tesel_help.html"
start_tesel
keys F1
wait_for '"The help file \[.*tesel_help\.html\] cannot be opened!"'
dialog_keys Return
wait_gone 'cannot be opened'
