# A quick zigzag of the pen, 400 pixels in half a second and released at
# once, shows whole a moment after the release: every corner and every leg
# of the path, not a straight stub of what the stroke had reached.
. "$(dirname "$0")/../lib.sh"

open_picture 640 480

# 20 moves of 20 pixels across, 25 ms apart, down 60 and up again twice.
point() { echo "$((vx + 100 + 20 * $1)) $((vy + 100 + 12 * (5 - ($1 % 10 < 5 ? 5 - $1 % 10 : $1 % 10 - 5))))"; }
moves="mousemove $(point 0) mousedown 1"
for i in $(seq 1 20); do moves="$moves sleep 0.025 mousemove $(point "$i")"; done
xdotool $moves sleep 0.02 mouseup 1
sleep 0.3  # the moment after the release that the path must show by
grab
keep_shot pen-fast-drag

# Paint within 4 pixels of each point of the path, the corners included.
for i in $(seq 0 20); do
  read -r x y <<<"$(point "$i")"
  [ -n "$(not_white_box $((x - 4)) $((y - 4)) 9 9)" ] ||
    fail "0.3 s after the release no paint near point $i ($((x - vx)),$((y - vy)))"
done
# And only along it: nothing above or below the zigzag.
[ -z "$(not_white_box $vx $vy 640 90)" ] || fail "paint above the path"
[ -z "$(not_white_box $vx $((vy + 171)) 640 300)" ] || fail "paint below the path"
