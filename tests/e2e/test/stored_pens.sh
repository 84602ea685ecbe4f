# Shift+3 over a picture stores the pen as pen03 beside the program and
# says so; 3 brings a stored pen back: with radius 20 written into pen03,
# a single dab comes out about 40 pixels wide instead of the first-run pen's
# few pixels.
. "$(dirname "$0")/../lib.sh"

open_picture 200 150
keys shift+3
answer '"Now registered to \[3\]!"' Return
[ "$(stat -c %s "$DIST/pen03" 2>/dev/null)" = 200 ] || fail "no pen03 of 200 bytes beside the program"

# Both radii, little-endian doubles at 10 and 18: 20.0 is 0x4034000000000000.
printf '\0\0\0\0\0\0\x34\x40\0\0\0\0\0\0\x34\x40' |
  dd of="$DIST/pen03" bs=1 seek=10 conv=notrunc status=none
keys 3
shift_drag "$((vx + 100)),$((vy + 75))"
xdotool mousemove 5 5
shot
keep_shot stored-pen-dab
box=$(not_white_box $vx $vy 200 150)
[ -n "$box" ] || fail "no dab at all"
read -r w h _ _ <<<"${box//[x+]/ }"
[ $w -ge 30 ] && [ $w -le 42 ] && [ $h -ge 30 ] && [ $h -le 42 ] ||
  fail "the dab covers $box, not the 40 pixels of the stored pen"
