# A stroke saved as PNG through the Save dialog's PNG filter (after the
# warning that a flat format drops layers) is where it was painted when
# ImageMagick reads the file; a PNG that ImageMagick made opens with its
# picture where it was drawn.
. "$(dirname "$0")/../lib.sh"

open_picture 200 150
paint_through "$((vx + 30)),$((vy + 50))" "$((vx + 170)),$((vy + 50))"
xdotool mousemove 5 5

keys ctrl+shift+s
wait_for "$SAVE_AS"
# The filters run bmp, tsl, png, ...: tsl is chosen first, png is next.
dialog_keys alt+t Down alt+n
enter_name "$SAVE_AS" "$FOLDER\\stroke"
answer "$(dialog Tesel)" Return
wait_until 20 test -s "$DIST/stroke.png"
# The paint's box as ImageMagick sees it: "<w>x<h>+<x>+<y>".
box=$(convert "$DIST/stroke.png" -fuzz 10% -trim -format '%wx%h%X%Y' info:)
read -r w h x y <<<"${box//[x+]/ }"
[ "$x" -ge 26 ] && [ "$y" -ge 44 ] && [ $((x + w)) -le 174 ] && [ $((y + h)) -le 56 ] && [ "$w" -ge 130 ] ||
  fail "ImageMagick finds the paint at $box, not along y 50 from x 30 to 170"

convert -size 64x48 xc:none -fill red -draw 'rectangle 10,10 29,29' "$DIST/square.png"
open_file "$FOLDER\\square.png"
wait_for "${DOCUMENT}[0-9]+ \"[^\"]*square.png\""
wait_view 64x48
read -r vx vy _ _ <<<"$(view_rect)"
red() { pixel_is $((vx + 20)) $((vy + 20)) "255 0 0"; }
shot_until 10 red
keep_shot png-square
red || fail "the square's middle shows $(pixel $((vx + 20)) $((vy + 20))), not red"
