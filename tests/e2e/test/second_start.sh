# A second start without files shows string 1308 and leaves the first
# alone. With two files it hands them over as one drop and ends at once;
# the first instance tries each (neither exists: 1302 each) and goes on
# working.
. "$(dirname "$0")/../lib.sh"

start_tesel
(cd "$DIST" && wine tesel.exe >>"$OUT/wine.log" 2>&1) &
answer '"Double starting of Tesel is not possible!"' Return
[ "$(probe | grep -c '^0 da00#')" -eq 1 ] || fail "a second frame came up"

(cd "$DIST" && timeout 20 wine tesel.exe 'C:\missing one.tsl' 'C:\missing two.tsl' >>"$OUT/wine.log" 2>&1) ||
  fail "the second start with files did not end by itself"
has_window 'Double starting' && fail "the start with files was refused"
[ "$(probe | grep -c '^0 da00#')" -eq 1 ] || fail "a second frame came up"
kill -0 "$TESEL" 2>/dev/null || fail "the first instance ended on the drop"
answer '"Opening file failed!"' Return
answer '"Opening file failed!"' Return
activate_frame
new_document 40 30
wait_documents 1
