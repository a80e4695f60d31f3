#!/usr/bin/env bash
# With the virtual tablet shown, the teacher keeps the keyboard in Mervak's own
# windows and menus, and a click on the tablet types into the pupil's program and
# leaves it the focus. The tablet opens clear of the menus and toolbar, and comes
# back where the user put it.
#   virtual_tablet_focus.sh BIN_DIR SOURCE_DIR   (run inside scripts/with-display.sh)
set -euo pipefail
bin=$1
source=$2
work=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null || true; rm -rf "$work"' EXIT
export XDG_RUNTIME_DIR="$work"
received="$work/received.txt"
mkdir -p "$work/home"
printf '[Mervak]\r\nModel=DIL\r\n' >"$work/home/MERVAK.INI"
cp "$source/data/demo/demo.mvw" "$source/data/demo/demo.png" "$work/"

xterm -T "Mervak demo" -geometry 40x8+700+40 -e sh -c "stty -icanon -echo min 1; exec tee '$received'" &
"$bin/mervak" --home "$work/home" "$work/demo.mvw" &

fail() { echo "FAIL: $*"; exit 1; }

# A window found by name may not be mapped yet: activating it can fail for a moment.
activate() {
  for _ in $(seq 50); do
    xdotool windowactivate --sync "$1" 2>/dev/null && return
    sleep 0.1
  done
  fail "cannot activate window $1"
}

wait_for_window() {
  for _ in $(seq 100); do
    id=$(xdotool search "${@:2}" --name "$1" 2>/dev/null | head -n 1) && [ -n "$id" ] && { echo "$id"; return; }
    sleep 0.1
  done
  fail "no window named $1"
}

tablet_window() {
  xdotool search --onlyvisible --name "^Tauleta virtual - demo$" 2>/dev/null | head -n 1
}

main=$(wait_for_window "^Mervak - ")
terminal=$(wait_for_window "^Mervak demo$")
activate "$main"
xdotool key --clearmodifiers F12
sleep 1
tablet=$(tablet_window)
[ -n "$tablet" ] || fail "the virtual tablet did not appear"
eval "$(xdotool getwindowgeometry --shell "$main" | sed 's/^/MAIN_/')"
eval "$(xdotool getwindowgeometry --shell "$tablet")"
# The menu bar and the toolbar take the main window's first 60 pixels.
[ "$X" -ge $((MAIN_X + MAIN_WIDTH)) ] || [ "$Y" -ge $((MAIN_Y + 60)) ] ||
  fail "the tablet at $X,$Y covers the main window's menus at $MAIN_X,$MAIN_Y"

# The teacher zooms in from the Veure menu (so that a click on the sheet picks an
# Area without firing it), picks the first Area and types at the end of its text.
activate "$terminal"
activate "$main"
xdotool key --clearmodifiers alt+v Down Return
sleep 0.5
# Zoomed in, the first Area covers the left of the view half-way down.
xdotool mousemove $((MAIN_X + 100)) $((MAIN_Y + MAIN_HEIGHT / 2 - 50)) click 1
sleep 0.5
xdotool key --clearmodifiers ctrl+End
xdotool type --delay 100 "xyz"
sleep 0.5
[ "$(xdotool getactivewindow)" = "$main" ] || fail "the main window lost the focus"
[ ! -s "$received" ] || fail "the teacher's typing reached the pupil's program: '$(cat "$received")'"

# The upper-left quarter of the tablet types the edited text: "hola xyz".
xdotool mousemove $((X + WIDTH / 4)) $((Y + HEIGHT / 4)) click 1
sleep 1.5
active=$(xdotool getactivewindow)
text=$(cat "$received")
echo "received: '$text', focus on $active (terminal $terminal)"
[ "$active" = "$terminal" ] || fail "the click took the focus"
[ "$text" = "hola xyz" ] || fail "expected 'hola xyz'"

# Moved, hidden and shown again, the tablet comes back where it was left.
xdotool windowmove --sync "$tablet" 40 420
sleep 0.5
left=$(xdotool getwindowgeometry "$tablet" | grep Position)
activate "$main"
xdotool key --clearmodifiers F12
sleep 0.5
grep -q '^TeclatAuxiliar=' "$work/home/MERVAK.INI" || fail "the tablet's place was not stored"
xdotool key --clearmodifiers F12
sleep 1
again=$(xdotool getwindowgeometry "$(tablet_window)" | grep Position)
[ "$again" = "$left" ] || fail "the tablet came back at '$again', not '$left'"
echo "PASS"
