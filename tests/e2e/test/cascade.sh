# Document windows cascade from the MDI client's corner in steps of 12 and
# start at the corner again beyond 36; Close All closes every one.
. "$(dirname "$0")/../lib.sh"

start_tesel
for n in 1 2 3 4 5; do
  new_document 50 40
  wait_documents $n
done
places=$(probe | sed -n "s/${DOCUMENT}[0-9]* \".*\" [0-9]*x[0-9]* @\(.*\)$/\1/p" | sort -t, -n -k1 | tr '\n' ' ')
[ "$places" = "0,0 0,0 12,12 24,24 36,36 " ] || fail "documents stand at $places"
# Window menu: Tile, Cascade, Arrange Minimized Windows, Close All.
keys alt+w Down Down Down Return
wait_gone "$DOCUMENT"
