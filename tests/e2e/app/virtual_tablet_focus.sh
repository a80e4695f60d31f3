#!/usr/bin/env bash
# A click on the virtual tablet types into the pupil's program and leaves it the focus.
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

# A window found by name may not be mapped yet: activating it can fail for a moment.
activate() {
  for _ in $(seq 50); do
    xdotool windowactivate --sync "$1" 2>/dev/null && return
    sleep 0.1
  done
  echo "cannot activate window $1" >&2
  exit 1
}

wait_for_window() {
  for _ in $(seq 100); do
    id=$(xdotool search --name "$1" 2>/dev/null | head -n 1) && [ -n "$id" ] && { echo "$id"; return; }
    sleep 0.1
  done
  echo "no window named $1" >&2
  exit 1
}
main=$(wait_for_window "^Mervak - ")
terminal=$(wait_for_window "^Mervak demo$")
# Without a tablet a message box says so; close it, then show the virtual tablet.
box=$(wait_for_window "^MERVAK$")
activate "$box"
xdotool key --clearmodifiers Return
activate "$main"
xdotool key --clearmodifiers F12
sleep 1
activate "$terminal"
sleep 0.5
tablet=$(xdotool search --onlyvisible --classname "mervak" 2>/dev/null | grep -v "^$main$" | while read -r w; do
  [ "$(xdotool getwindowname "$w")" = "Mervak" ] && echo "$w"; done | head -n 1)
[ -n "$tablet" ] || { echo "the virtual tablet did not appear"; exit 1; }
eval "$(xdotool getwindowgeometry --shell "$tablet")"
# The upper-left quarter types "hola ".
xdotool mousemove $((X + WIDTH / 4)) $((Y + HEIGHT / 4)) click 1
sleep 1.5
active=$(xdotool getactivewindow)
text=$(cat "$received")
echo "received: '$text', focus on $active (terminal $terminal)"
[ "$active" = "$terminal" ] || { echo "FAIL: the click took the focus"; exit 1; }
[ "$text" = "hola " ] || { echo "FAIL: expected 'hola '"; exit 1; }
echo "PASS"
