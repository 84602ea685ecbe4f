# The CONTROL page edits the live pen with real clicks: the block shape,
# sized by a drag in the preview, paints a 21 x 21 square; Noise chosen
# from the mode popup paints noise; the Color button brings the colour
# back; a dot pen tile paints its own tip; a stored pen brings its panel
# back onto the page.
. "$(dirname "$0")/../lib.sh"

control_text() { probe | sed -n "s/^$1 $2#$3 \"\(.*\)\" .*/\1/p" | head -1; }
# A single dab at x, y of the picture.
dab() { shift_drag "$((vx + $1)),$((vy + $2))"; }

open_picture 200 150
# The page fills the 180-pixel column.
read -r _ _ pw _ <<<"$(screen_rect '^2 #32770#0 ')"
[ "$pw" = 180 ] || fail "the page is $pw pixels wide, not 180"
shot
keep_shot pen-panel

# Shape 10 is the block; a drag 10 pixels right of the preview's middle
# with the left button makes both radii 10: a 21 x 21 block.
click_control 4 Button 10
read -r px py <<<"$(centre_of 4 tslTipPreview 100)"
drag "$px,$py" "$((px + 5)),$((py + 3))" "$((px + 10)),$((py + 3))"
wait_for '^4 Button#101 "21 x 21 ▾" ' 10
dab 50 40
xdotool mousemove 5 5
shot
box=$(not_white_box $vx $vy 200 150)
[ "$box" = "21x21+40+30" ] || fail "the block dab covers '$box', not 21x21+40+30"
expect_pixel $((vx + 50)) $((vy + 40)) "0 0 0" "the middle of the block"

# Noise from the mode popup, chosen with the keys in the open menu.
click_control 3 Button 310
dialog_keys Down Down Down Down Down Down Down Down Down Return
wait_for '^3 Button#310 "Noise ▾" ' 10
path=()
for x in $(seq 30 10 170); do path+=("$((vx + x)),$((vy + 115))"); done
drag "${path[@]}"
xdotool mousemove 5 5
shot
noise=$(not_white_box $vx $((vy + 80)) 200 70)
[ -n "$noise" ] || fail "Noise left the paper white"
read -r w h x y <<<"${noise//[x+]/ }"
[ $y -ge 20 ] && [ $((y + h)) -le 50 ] && [ $w -ge 100 ] ||
  fail "the noise covers $noise, not a band along the path"
[ "$(pixel $((vx + 100)) $((vy + 115)))" != "0 0 0" ] || fail "Noise painted black"

# The Color button paints the pen's black again.
click_control 3 Button 300
wait_for '^3 Button#310 "Color ▾" ' 10
dab 150 40
xdotool mousemove 5 5
shot
keep_shot pen-panel-used
expect_pixel $((vx + 150)) $((vy + 40)) "0 0 0" "the colour dab"

# The dot pens: the first tile of the first family paints its own tip,
# no larger than the size the panel shows for it.
click_control 4 Button 103
wait_for '^4 Button#105 "Next" '
click_control 4 Button 0
read -r tw _ th <<<"$(control_text 4 Static 107)"
[ -n "$tw" ] && [ -n "$th" ] || fail "no tip size shown"
dab 100 75
xdotool mousemove 5 5
shot
keep_shot pen-panel-dot
box=$(not_white_box $((vx + 80)) $((vy + 55)) 40 40)
read -r w h _ _ <<<"${box//[x+]/ }"
[ -n "$box" ] && [ $w -le $((tw + 1)) ] && [ $h -le $((th + 1)) ] && [ $w -gt 2 ] ||
  fail "the dot pen's dab covers '$box', its tip is $tw x $th"

# The keys of the picture still work after clicks on the page: Shift+1
# stores the pen; back on the brushes, 1 brings the dot pen back and the
# page shows its panel again.
keys shift+1
answer '"Now registered to \[1\]!"' Return
click_control 4 Button 103
wait_for '^4 Button#103 "Dot Pens" '
keys 1
wait_for '^4 Button#105 "Next" '
