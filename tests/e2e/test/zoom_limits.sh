# Zoom In stops at 1000 % and Zoom Out at 25 %: the view of a 64 x 48
# canvas stays 640 x 480 and 16 x 12 at the two ends. A step the other way
# after the extra ones shows that they were taken, and taken as nothing.
. "$(dirname "$0")/../lib.sh"

view_is() { [ "$(view_size)" = "$1" ]; }
open_picture 64 48
for _ in $(seq 11); do keys ctrl+t; done
wait_view 640x480
keys ctrl+t ctrl+t ctrl+d
poll_until 20 view_is 576x432 || fail "Zoom In beyond 1000 % and one step out gave $(view_size), not 576x432"
for _ in $(seq 14); do keys ctrl+d; done
wait_view 16x12
keys ctrl+d ctrl+t
poll_until 20 view_is 32x24 || fail "Zoom Out below 25 % and one step in gave $(view_size), not 32x24"
