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

# Waits until the window list matches (or, with wait_gone, no longer
# matches) an extended regular expression; fails after the timeout.
wait_for() {
  local pattern=$1 seconds=${2:-20}
  local end=$((SECONDS + seconds))
  while ! probe | grep -Eq -- "$pattern"; do
    [ $SECONDS -lt $end ] || fail "no window matching '$pattern' within ${seconds}s"
    sleep 0.2
  done
}
wait_gone() {
  local pattern=$1 seconds=${2:-20}
  local end=$((SECONDS + seconds))
  while probe | grep -Eq -- "$pattern"; do
    [ $SECONDS -lt $end ] || fail "window matching '$pattern' still there after ${seconds}s"
    sleep 0.2
  done
}

# Starts tesel.exe in the program folder and waits for its frame; FRAME is
# then the frame's X window and TESEL the process that runs it.
start_tesel() {
  (cd "$DIST" && exec wine tesel.exe "$@" >>"$OUT/wine.log" 2>&1) &
  TESEL=$!
  wait_for '^0 da00#0 "Tesel'
  FRAME=$(xdotool search --name '^Tesel' | head -1)
  [ -n "$FRAME" ] || fail "the frame has no X window"
}

# Waits until the program started last has ended.
wait_exit() {
  local end=$((SECONDS + 20))
  while kill -0 "$TESEL" 2>/dev/null; do
    [ $SECONDS -lt $end ] || fail "the program did not end"
    sleep 0.2
  done
}

# Keys go to the window that has the focus; the frame takes it first.
keys() {
  xdotool windowfocus "$FRAME" 2>/dev/null || true
  xdotool key --delay 60 "$@"
}
type_text() { xdotool type --delay 60 "$1"; }

# A click on the frame's caption, as a user brings a window forward after
# another program had the focus.
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

screenshot() { xwd -root -silent | convert xwd:- "$OUT/$1.png"; }

# The document windows' titles and view sizes, as the probe lists them.
document_titles() { probe | sed -n 's/^2 CanvClass#[0-9]* "\(.*\)" .*/\1/p'; }
view_size() { probe | sed -n 's/^4 CanvWndDispClass#0 "" \([0-9]*x[0-9]*\) .*/\1/p' | head -1; }
# The text of a control of the dialog on top.
field() { probe | sed -n "s/^1 [A-Za-z]*#$1 \"\(.*\)\" .*/\1/p" | head -1; }

# New picture of the given size through Ctrl+N and the dialog.
new_document() {
  keys ctrl+n
  wait_for '^0 #32770#0 "New"'
  type_text "$1"
  dialog_keys Tab
  type_text "$2"
  dialog_keys Return
  wait_gone '^0 #32770#0 "New"'
}

# A little-endian 32-bit word of a file at a byte offset.
word_at() { od -An -tu4 -j "$2" -N4 "$1" | tr -d ' '; }

# Answers each box showing a text with Return until none comes for two
# seconds; prints how many there were.
dismiss_boxes() {
  local count=0 quiet=0
  while [ $quiet -lt 10 ]; do
    if probe | grep -Eq -- "$1"; then
      dialog_keys Return
      count=$((count + 1))
      quiet=0
      sleep 0.5
    else
      quiet=$((quiet + 1))
      sleep 0.2
    fi
  done
  echo $count
}

# Waits until exactly n document windows stand.
wait_documents() {
  local end=$((SECONDS + 20))
  until [ "$(document_titles | wc -l)" -eq "$1" ]; do
    [ $SECONDS -lt $end ] || fail "expected $1 documents, have $(document_titles | wc -l)"
    sleep 0.2
  done
}

# Where the first window matching a pattern stands on the screen:
# "<x> <y> <width> <height>".
screen_rect() {
  wine "$PROBE" screen 2>/dev/null | tr -d '\r' | grep -E -m1 -- "$1" |
    sed -n 's/.* \([0-9]*\)x\([0-9]*\) @\(-\{0,1\}[0-9]*\),\(-\{0,1\}[0-9]*\)$/\3 \4 \1 \2/p'
}
view_rect() { screen_rect '^4 CanvWndDispClass#0 '; }

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
shot() {
  sleep 0.5  # what the last input changed has painted
  grab
}
# Screenshots until the last one passes a check (a command with its
# arguments), for at most the given seconds: on a busy machine what the
# last input changed may paint late. The test then checks that screenshot
# as usual, so a state that never comes still fails there, with its message.
shot_until() {
  local end=$((SECONDS + $1))
  shift
  grab
  until "$@" || [ $SECONDS -ge $end ]; do
    sleep 0.1
    grab
  done
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

# The pointer to the tool bar, off every document: Wine learns where the
# pointer is from the moves over its own windows, and a zoom keeps the
# point under the pointer when it stands on the document.
pointer_off_documents() {
  read -r px py _ _ <<<"$(screen_rect '^1 ToolBarClass#3 ')"
  xdotool mousemove $((px + 300)) $((py + 10))
  sleep 0.3
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

# Where the last screenshot differs from white inside a screen rectangle
# "<x> <y> <width> <height>": the box around those pixels as
# "<width>x<height>+<x>+<y>" relative to the rectangle; nothing when all
# is white.
not_white_box() {
  convert "$SHOT.png" -crop "${3}x${4}+${1}+${2}" +repage -fill black +opaque white -negate \
    -format '%@' info: 2>/dev/null | grep -v '^0x0' || true
}
