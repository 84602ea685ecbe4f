# Helpers of the end-to-end tests, sourced by each test/*.sh. run.sh sets:
#   DISPLAY       the virtual X server
#   WINEPREFIX    this test's own copy of the booted prefix
#   DIST          this test's own copy of the program folder
#   PROBE         the window lister (probe.cpp), outside the program folder
#   OUT           where screenshots and logs of this test go
set -euo pipefail

fail() {
  echo "FAIL: $*" >&2
  probe >&2 || true
  exit 1
}

# The program's windows, one a line:
#   <depth> <class>#<id> "<text>" <w>x<h> @<x>,<y>
probe() { wine "$PROBE" 2>/dev/null | tr -d '\r'; }
# A command to the frame by its number, as a tool bar button sends it.
send_command() { wine "$PROBE" command "$1" >/dev/null 2>&1 || fail "no frame took command $1"; }

# Patterns of the probe's lines for the windows the tests look at.
MAIN_WINDOW='^0 da00#0 "Tesel'
SPLASH='^0 #32770#0 "" 512x256 '
MDI_CLIENT='^1 MDIClient#1 '
STATUS_BAR='^1 StatusBarClass#2 '
TOOL_BAR='^1 ToolBarClass#3 '
DOCUMENT='^2 CanvClass#'
ZOOM_FIELD='^2 ZoomFieldClass#1 '
VIEW_FRAME='^3 CanvWndClass#9 '
H_RULER='^3 hGageClass#19 '
V_RULER='^3 vGageClass#20 '
VIEW='^4 CanvWndDispClass#0 '
dialog() { echo "^0 #32770#0 \"$1\""; }

# Runs a command every 0.2 s until it succeeds, for at most the given
# seconds. poll_until then only answers, for a check that looks at the last
# state itself; wait_until fails.
poll_until() {
  local end=$((SECONDS + $1))
  shift
  until "$@"; do
    [ $SECONDS -lt $end ] || return 1
    sleep 0.2
  done
}
wait_until() { poll_until "$@" || fail "gave up after $1 s waiting for: ${*:2}"; }

has_window() { probe | grep -Eq -- "$1"; }
no_window() { ! has_window "$1"; }
wait_for() { wait_until "${2:-20}" has_window "$1"; }
wait_gone() { wait_until "${2:-20}" no_window "$1"; }
# The view at a size "<width>x<height>", and the zoom read-out at a text.
wait_view() { wait_for "$VIEW\"\" $1 " "${2:-20}"; }
wait_readout() { wait_for "$ZOOM_FIELD\"$1\" " 5; }

# The file dialogs, and the program folder as Wine names it (drive Z:), for
# typing names into them.
SAVE_AS=$(dialog 'Save As')
OPEN=$(dialog Open)
FOLDER="Z:$(echo "$DIST" | tr / '\\')"
# A name typed into the file dialog that stands, and Return.
enter_name() {
  type_text "$2"
  answer "$1" Return
}
save_as() {
  keys ctrl+shift+s
  wait_for "$SAVE_AS"
  enter_name "$SAVE_AS" "$1"
}
open_file() {
  keys ctrl+o
  wait_for "$OPEN"
  enter_name "$OPEN" "$1"
}

# Waits for a dialog or a message box, answers it with keys and waits for
# it to go.
answer() {
  local pattern=$1
  shift
  wait_for "$pattern"
  dialog_keys "$@"
  wait_gone "$pattern"
}

# Starts tesel.exe in the program folder and waits for its frame; FRAME is
# then the frame's X window and TESEL the process that runs it.
start_tesel() {
  (cd "$DIST" && exec wine tesel.exe "$@" >>"$OUT/wine.log" 2>&1) &
  TESEL=$!
  wait_for "$MAIN_WINDOW"
  FRAME=$(xdotool search --name '^Tesel' | head -1)
  [ -n "$FRAME" ] || fail "the frame has no X window"
}

# Waits until the program started last has ended.
tesel_ended() { ! kill -0 "$TESEL" 2>/dev/null; }
wait_exit() { wait_until 20 tesel_ended; }

# Keys go to the window that has the focus; the frame takes it first.
keys() {
  xdotool windowfocus "$FRAME" 2>/dev/null || true
  xdotool key --delay 60 "$@"
}
type_text() { xdotool type --delay 60 "$1"; }

# The item of the View menu so many places below its first.
view_menu() {
  local moves=() i
  for ((i = 0; i < $1; i++)); do moves+=(Down); done
  keys alt+v "${moves[@]}" Return
}

# The pointer to a screen point. Wine learns where it is from the moves
# over its own windows, in its own time, and nothing the tests can see
# shows when it has: hence the pause.
point_at() {
  xdotool mousemove "$1" "$2"
  sleep 0.3
}

# A click on the frame's caption, as a user brings a window forward after
# another program had the focus; nothing the probe lists shows when Wine
# has made it active.
activate_frame() {
  eval "$(xdotool getwindowgeometry --shell "$FRAME")"
  xdotool mousemove $((X + 200)) $((Y + 10)) click 1
  sleep 0.3
}

# Keys to whatever window Wine made active (a dialog or a message box).
dialog_keys() { xdotool key --delay 60 "$@"; }

# The frame's size on the screen: "<width>x<height>".
frame_size() {
  xdotool getwindowgeometry "$FRAME" | sed -n 's/.*Geometry: \([0-9]*x[0-9]*\).*/\1/p'
}

# The document windows' titles and how many there are; the view's size.
document_titles() { probe | sed -n "s/${DOCUMENT}[0-9]* \"\(.*\)\" .*/\1/p"; }
document_count() { document_titles | wc -l; }
documents_are() { [ "$(document_count)" -eq "$1" ]; }
wait_documents() { wait_until 20 documents_are "$1"; }
view_size() { probe | sed -n "s/$VIEW\"\" \([0-9]*x[0-9]*\) .*/\1/p" | head -1; }
# The text of a control of the dialog on top.
field() { probe | sed -n "s/^1 [A-Za-z]*#$1 \"\(.*\)\" .*/\1/p" | head -1; }

# New picture of the given size through Ctrl+N and the dialog.
new_document() {
  keys ctrl+n
  wait_for "$(dialog New)"
  type_text "$1"
  dialog_keys Tab
  type_text "$2"
  answer "$(dialog New)" Return
}
# The same in a fresh start, and the view at that size; vx, vy are then
# where the view stands on the screen.
open_picture() {
  start_tesel
  new_document "$1" "$2"
  wait_view "${1}x$2"
  read -r vx vy _ _ <<<"$(view_rect)"
}
# A 640 x 480 picture at 200 %, larger than its window; fx, fy, fw, fh are
# then where the view frame stands on the screen.
open_large_picture() {
  open_picture 640 480
  pointer_off_documents
  keys ctrl+t ctrl+t
  wait_view 1280x960
  read -r fx fy fw fh <<<"$(screen_rect "$VIEW_FRAME")"
}

# A little-endian 32-bit word of a file at a byte offset.
word_at() { od -An -tu4 -j "$2" -N4 "$1" | tr -d ' '; }

# Where the first window matching a pattern stands on the screen:
# "<x> <y> <width> <height>".
screen_rect() {
  wine "$PROBE" screen 2>/dev/null | tr -d '\r' | grep -E -m1 -- "$1" |
    sed -n 's/.* \([0-9]*\)x\([0-9]*\) @\(-\{0,1\}[0-9]*\),\(-\{0,1\}[0-9]*\)$/\3 \4 \1 \2/p'
}
view_rect() { screen_rect "$VIEW"; }
view_at() {
  local x y
  read -r x y _ _ <<<"$(view_rect)"
  [ "$x,$y" = "$1,$2" ]
}
# Waits until the view stands at screen x, y after a move named by the third
# argument.
wait_view_at() {
  poll_until 5 view_at "$1" "$2" ||
    fail "the view stands at $(view_rect | cut -d' ' -f1-2 | tr ' ' ,), not $1,$2 ($3)"
}

# A screenshot whose pixels `pixel` reads; keep_shot keeps the last one in
# the output folder.
SHOT=$(dirname "$DIST")/shot
grab() {
  # xwd takes the screen in a few milliseconds, so a shot shows the moment
  # it was asked for; the conversions come after.
  xwd -root -silent >"$SHOT.xwd"
  convert "$SHOT.xwd" -write "png:$SHOT.png" -depth 8 "rgb:$SHOT.rgb"
  SHOT_WIDTH=$(identify -format %w "$SHOT.png")
}
# For checks that something is not there, or not anywhere else: no state
# to wait for, only the time for what the last input changed to paint.
shot() {
  sleep 0.5
  grab
}
# Screenshots until the last one passes a check (a command with its
# arguments), for at most the given seconds: on a busy machine what the
# last input changed may paint late. The test then checks that screenshot
# as usual, so a state that never comes still fails there, with its message.
shot_until() { poll_until "$1" grab_and "${@:2}" || true; }
grab_and() {
  grab
  "$@"
}
pixel_is() { [ "$(pixel "$1" "$2")" = "$3" ]; }
pixel_is_not() { [ "$(pixel "$1" "$2")" != "$3" ]; }
keep_shot() { cp "$SHOT.png" "$OUT/$1.png"; }
# "<red> <green> <blue>" of the last screenshot at screen x, y.
pixel() { od -An -tu1 -j $((($2 * SHOT_WIDTH + $1) * 3)) -N3 "$SHOT.rgb" | xargs; }
expect_pixel() {
  local got
  got=$(pixel "$1" "$2")
  [ "$got" = "$3" ] || fail "pixel $1,$2 is $got, not $3${4:+ ($4)}"
}

# The view size at a zoom step, by the zoom table: 25 %, 50 %, "75 %"
# (2/3), 100 %, 150 %, then 200 % .. 1000 % in whole steps.
zoomed() {
  local step=$1 v=$2 num den
  case $step in
    -3) num=1 den=4 ;;
    -2) num=1 den=2 ;;
    -1) num=2 den=3 ;;
    0) num=1 den=1 ;;
    1) num=3 den=2 ;;
    *) num=$step den=1 ;;
  esac
  echo $((v * num / den))
}

# The pointer to the tool bar, off every document: a zoom keeps the point
# under the pointer when it stands on the document.
pointer_off_documents() {
  read -r px py _ _ <<<"$(screen_rect "$TOOL_BAR")"
  point_at $((px + 300)) $((py + 10))
}

# A stroke of the left button through screen points "x,y x,y ...", each
# joined to the last in a straight line: at each the pointer rests until
# the paint has reached it on the screen. A stroke polls the pointer, and
# on a busy machine it would otherwise see few points of a quick drag and
# join them in long straight segments, cutting the corners.
paint_through() {
  local point
  xdotool mousemove "${1%,*}" "${1#*,}" mousedown 1
  for point in "$@"; do
    xdotool mousemove "${point%,*}" "${point#*,}"
    shot_until 10 pixel_is_not "${point%,*}" "${point#*,}" "255 255 255"
    pixel_is_not "${point%,*}" "${point#*,}" "255 255 255" || fail "the stroke never reached $point"
  done
  xdotool mouseup 1
}

# A press, moves in steps and a release of the left button along a path of
# screen points "x,y x,y ..."; the pointer rests at the end a while, so
# that a loop polling it sees it there before the release.
drag() {
  xdotool mousemove "${1%,*}" "${1#*,}" mousedown 1
  shift
  local point
  for point in "$@"; do
    sleep 0.05
    xdotool mousemove "${point%,*}" "${point#*,}"
  done
  sleep 0.3
  xdotool mouseup 1
}
# The same with Shift held from before the press: a single dab of the pen
# where the path begins.
shift_drag() {
  xdotool mousemove "${1%,*}" "${1#*,}" keydown shift
  drag "$@"
  xdotool keyup shift
}

# Where the last screenshot differs from white inside a screen rectangle
# "<x> <y> <width> <height>": the box around those pixels as
# "<width>x<height>+<x>+<y>" relative to the rectangle; nothing when all
# is white.
not_white_box() {
  convert "$SHOT.png" -crop "${3}x${4}+${1}+${2}" +repage -fill black +opaque white -negate \
    -format '%@' info: 2>/dev/null | grep -v '^0x0' || true
}

# The LAYER page of the control panel, chosen by its tab (the second of
# three that share the strip's width).
# The middle of a control of a page, by its depth and number.
centre_of() {
  read -r cx cy cw ch <<<"$(screen_rect "^$1 $2#$3 ")"
  [ -n "${cx:-}" ] || fail "no control $2#$3 at depth $1"
  echo "$((cx + cw / 2)) $((cy + ch / 2))"
}
# The click's effect, a popup open or a tile picked, shows in nothing the
# probe lists: hence the pause.
click_control() {
  read -r px py <<<"$(centre_of "$@")"
  xdotool mousemove "$px" "$py" click 1
  sleep 0.3
}
# A click that lands while Wine is still activating the frame can be lost,
# so it clicks again until the page shows.
show_layer_page() {
  local tx ty tw try
  read -r tx ty tw _ <<<"$(screen_rect '^2 SysTabControl32#')"
  for try in 1 2 3; do
    point_at $((tx + tw / 2)) $((ty + 10))
    xdotool click 1
    poll_until 4 has_window 'LayManClass#' && return
  done
  fail "the LAYER tab doesn't show its page"
}
# The rows of the list that show, one a line as "<x> <y>" on the screen,
# from the top of the list down.
LAYER_ROW='^4 #32770#0 "" 102x32 '
layer_rows() {
  wine "$PROBE" screen 2>/dev/null | tr -d '\r' | grep -E -- "$LAYER_ROW" |
    sed -n 's/.* @\(-\{0,1\}[0-9]*\),\(-\{0,1\}[0-9]*\)$/\1 \2/p' | sort -n -k2
}
layer_rows_are() { [ "$(layer_rows | wc -l)" -eq "$1" ]; }
# The layer menu of the strip's Edit button, then the keys that choose
# its item.
layer_menu() {
  local ex ey
  read -r ex ey _ _ <<<"$(screen_rect '^3 Button#110 "Edit')"
  point_at $((ex + 10)) $((ey + 8))
  xdotool click 1
  sleep 0.5
  dialog_keys "$@"
}

# A shot of one top-level window by its title (a dialog shows black in a
# shot of the whole screen), kept as <name>.png; `pixel` then reads it at
# points relative to the window's frame, which stands at wx, wy.
grab_window() {
  local id
  id=$(xdotool search --name "^$1\$" | head -1)
  [ -n "$id" ] || fail "no window \"$1\" to photograph"
  xwd -id "$id" -silent >"$SHOT.xwd"
  convert "$SHOT.xwd" -write "png:$OUT/$2.png" -depth 8 "rgb:$SHOT.rgb"
  SHOT_WIDTH=$(identify -format %w "$OUT/$2.png")
  eval "$(xdotool getwindowgeometry --shell "$id" | sed -n 's/^\([XY]\)=/w\L\1=/p')"
}

# The pen red, from the top left corner of the PALETTE page's hue box (hue
# 0 at full saturation; the black pen's value 0 becomes full there). The
# page is the first behind the control panel's tabs: a click on the strip
# gives it the keys, which go to the first tab.
HUE_BOX='^[0-9] tsPickArea#100 '
red_pen() {
  local tx ty hx hy
  read -r tx ty _ _ <<<"$(screen_rect '^2 SysTabControl32#0 ')"
  if [ -n "${tx:-}" ]; then
    xdotool mousemove $((tx + 20)) $((ty + 10)) click 1
    sleep 0.3
    dialog_keys Left Left Left
  fi
  wait_for "$HUE_BOX"
  read -r hx hy _ _ <<<"$(screen_rect "$HUE_BOX")"
  xdotool mousemove "$hx" "$hy" click 1
  sleep 0.3
}

# A selection file of the box "<left> <top> <right> <bottom>" to stdout,
# laid out by hand: kind 20001 and the box as little-endian words, then
# the points and their count, all zero, to the fixed size of 40,988 bytes.
box_selection_file() {
  local word b
  for word in 20001 "$@"; do
    for b in 0 8 16 24; do printf "\\x$(printf %02x $(((word >> b) & 255)))"; done
  done
  head -c 40968 /dev/zero
}

# A fresh 200 x 150 picture with a box dragged by the box tool from view
# (50, 40) to (150, 100); `outlined` answers whether its outline shows on
# the last screenshot.
outlined() { pixel_is $((vx + 100)) $((vy + 40)) "0 0 0" && pixel_is $((vx + 150)) $((vy + 85)) "0 0 0"; }
boxed_picture() {
  open_picture 200 150
  send_command 20001
  drag "$((vx + 50)),$((vy + 40))" "$((vx + 100)),$((vy + 70))" "$((vx + 150)),$((vy + 100))"
  xdotool mousemove 5 5
  shot_until 10 outlined
}
