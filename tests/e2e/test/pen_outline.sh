# The pen's outline stands at the pointer, drawn by inversion, and leaves
# nothing behind on the picture: not inside a single dab (Shift and a
# click under the outline, the pointer moving on with the button down),
# not where a stroke began. A round dab and a level stroke are mirror
# images of themselves, which a left-over arc of the outline is not.
. "$(dirname "$0")/../lib.sh"

black="0 0 0"
open_picture 200 150

# The first-run pen has a radius of 3: its outline is the ellipse in the
# 7 x 7 box from 97,72, black over white.
xdotool mousemove $((vx + 100)) $((vy + 75))
shot_until 10 pixel_is $((vx + 97)) $((vy + 75)) "$black"
expect_pixel $((vx + 97)) $((vy + 75)) "$black" "the outline's left edge"
expect_pixel $((vx + 100)) $((vy + 75)) "255 255 255" "inside the outline"

shift_drag "$((vx + 100)),$((vy + 75))" "$((vx + 130)),$((vy + 75))" "$((vx + 150)),$((vy + 100))"

xdotool mousemove $((vx + 40)) $((vy + 40))
shot_until 10 pixel_is $((vx + 37)) $((vy + 40)) "$black"
paint_through "$((vx + 40)),$((vy + 40))" "$((vx + 80)),$((vy + 40))"
xdotool mousemove 5 5

# How many pixels of a screen rectangle differ from its mirror image
# (-flop left to right, -flip top to bottom).
asymmetry() {
  convert "$SHOT.png" -crop "${3}x${4}+${1}+${2}" +repage \( +clone "$5" \) \
    -compose difference -composite -colorspace gray -threshold 0 -format '%[fx:round(mean*w*h)]' info:
}
# The dab covers 98..103 by 73..78; the stroke's start, columns 30..49,
# is mirrored about the middle of its rows 38..43.
dab_clean() {
  [ "$(asymmetry $((vx + 94)) $((vy + 69)) 14 14 -flop)" = 0 ] &&
    [ "$(asymmetry $((vx + 94)) $((vy + 69)) 14 14 -flip)" = 0 ] &&
    [ "$(not_white_box $((vx + 94)) $((vy + 69)) 14 14)" = "6x6+4+4" ]
}
stroke_clean() { [ "$(asymmetry $((vx + 30)) $((vy + 31)) 20 20 -flip)" = 0 ]; }
both_clean() { dab_clean && stroke_clean; }
shot_until 10 both_clean
keep_shot pen-outline
dab_clean || fail "the dab shows what is not the pen's: $(asymmetry $((vx + 94)) $((vy + 69)) 14 14 -flop)" \
  "pixels unlike their mirror across, painted box $(not_white_box $((vx + 94)) $((vy + 69)) 14 14)"
stroke_clean || fail "where the stroke began, $(asymmetry $((vx + 30)) $((vy + 31)) 20 20 -flip)" \
  "pixels are unlike their mirror across row 40"
