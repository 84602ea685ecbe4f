# Zoom In stops at 1000 % and Zoom Out at 25 %: the view of a 64 x 48
# canvas stays 640 x 480 and 16 x 12 at the two ends.
. "$(dirname "$0")/../lib.sh"

start_tesel
new_document 64 48
wait_for '^4 CanvWndDispClass#0 "" 64x48 '
for _ in $(seq 11); do keys ctrl+t; done
wait_for '^4 CanvWndDispClass#0 "" 640x480 '
keys ctrl+t ctrl+t
sleep 0.5
[ "$(view_size)" = 640x480 ] || fail "Zoom In beyond 1000 % gave $(view_size)"
keys ctrl+d
wait_for '^4 CanvWndDispClass#0 "" 576x432 '
for _ in $(seq 14); do keys ctrl+d; done
wait_for '^4 CanvWndDispClass#0 "" 16x12 '
keys ctrl+d
sleep 0.5
[ "$(view_size)" = 16x12 ] || fail "Zoom Out below 25 % gave $(view_size)"
