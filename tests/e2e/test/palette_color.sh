# The PALETTE page with real clicks: red picked at the corner of the hue
# box is the pen's colour, and a stroke paints red; the colour model's
# popup opens the colour mixer on the pen's colour, and Cancel closes it.
. "$(dirname "$0")/../lib.sh"

open_picture 200 150
red_pen
paint_through "$((vx + 40)),$((vy + 50))" "$((vx + 160)),$((vy + 50))" "$((vx + 160)),$((vy + 110))"
xdotool mousemove 5 5
shot
keep_shot palette-page
for point in 40,50 100,50 155,50 160,80 160,105; do
  expect_pixel $((vx + ${point%,*})) $((vy + ${point#*,})) "255 0 0" "the stroke at $point"
done
expect_pixel $((vx + 100)) $((vy + 100)) "255 255 255" "off the stroke"

# The popup of the colour model: its two models, then the mixer.
read -r cx cy cw ch <<<"$(screen_rect '^[0-9] tsPickArea#200 ')"
xdotool mousemove $((cx + cw / 2)) $((cy + ch / 2)) click 1
sleep 0.5
dialog_keys Down Down Down Return
wait_for "$(dialog 'Color Mixer')"
# The mixer opens on the pen's red: its number fields say so.
wait_until 5 test "$(field 108)" = 255
[ "$(field 109)" = 0 ] && [ "$(field 110)" = 0 ] && [ "$(field 105)" = 0 ] ||
  fail "the mixer shows green $(field 109), blue $(field 110), hue $(field 105)"
# A shot of the whole screen shows a dialog black: the shot is of the
# dialog's own window. Its preview shows the pen's red.
read -r mx my _ _ <<<"$(screen_rect "$(dialog 'Color Mixer')")"
read -r px py pw ph <<<"$(screen_rect '^1 tsPickArea#111 ')"
mixer=$(xdotool search --name '^Color Mixer$' | head -1)
mixer_red() {
  xwd -id "$mixer" -silent >"$SHOT.xwd"
  convert "$SHOT.xwd" -write "png:$OUT/color-mixer.png" -depth 8 "rgb:$SHOT.rgb"
  SHOT_WIDTH=$(identify -format %w "$OUT/color-mixer.png")
  # The window's picture starts at its frame, a few pixels outside the client.
  local fx fy
  eval "$(xdotool getwindowgeometry --shell "$mixer" | sed -n 's/^\([XY]\)=/f\L\1=/p')"
  pixel_is $((px + pw / 2 - fx)) $((py + ph / 2 - fy)) "255 0 0"
}
poll_until 10 mixer_red || fail "the mixer's preview is not red"
dialog_keys Escape
wait_gone "$(dialog 'Color Mixer')"
