# The record written at exit is read at the next start: a saved frame
# size of 100 x 50 opens as 384 x 128, and that size is saved in turn.
. "$(dirname "$0")/../lib.sh"

frame_size_offset=8
cp "$DIST/env__2.env" "$DIST/env__.env"
# width 100 in the low half, height 50 in the high half
printf '\x64\x00\x32\x00' | dd of="$DIST/env__.env" bs=1 seek=$frame_size_offset conv=notrunc 2>/dev/null
printf '\x00\x00\x00\x00' | dd of="$DIST/env__.env" bs=1 seek=0 conv=notrunc 2>/dev/null

start_tesel
[ "$(frame_size)" = 384x128 ] || fail "the frame opened as $(frame_size), not 384x128"
keys alt+F4
wait_exit
saved=$(word_at "$DIST/env__.env" $frame_size_offset)
[ "$saved" -eq $(((128 << 16) | 384)) ] || fail "saved frame size word is $saved"
