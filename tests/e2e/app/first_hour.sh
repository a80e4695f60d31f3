#!/usr/bin/env bash
# A teacher's first start: a fresh home folder and no tablet. Mervak opens with no
# box to dismiss and says in its status bar how to go on (F12); started again
# without a file it reopens the Template used last; its virtual tablet opens at a
# usable size, titled with the Template's name, and a click on it types into the
# pupil's terminal; after a dialog the keyboard is Mervak's again; F1 opens the
# teacher's guide.
#   first_hour.sh BIN_DIR SOURCE_DIR   (run inside scripts/with-display.sh)
set -euo pipefail
bin=$1
source=$2
. "$(dirname "$0")/terminal.sh"

fail() {
  echo "FAIL: $*"
  import -window root /tmp/first_hour-failure.png 2>/dev/null || true
  exit 1
}

# Prints the id of the first visible window whose name matches, waiting for it.
wait_for_window() {
  for _ in $(seq 100); do
    id=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | head -n 1) && [ -n "$id" ] && {
      echo "$id"
      return
    }
    sleep 0.1
  done
  fail "no window named $1"
}

# The program's visible windows other than `main`, by name.
other_windows() {
  xdotool search --onlyvisible --pid "$mervak" 2>/dev/null | while read -r w; do
    [ "$w" = "$1" ] || xdotool getwindowname "$w"
  done
}

start_terminal
start_mervak
main=$(wait_for_window "^Mervak - ")
# The device search ends within a second; a box would show by then.
sleep 2
others=$(other_windows "$main")
[ -z "$others" ] || fail "windows beside the main one: $others"
import -window "$main" "$work/start.png"
tesseract "$work/start.png" - -l cat 2>/dev/null | tr '\n' ' ' >"$work/start.txt"
grep -q "F12" "$work/start.txt" || fail "the status bar does not say F12: $(cat "$work/start.txt")"
grep -q "localitza la tauleta" "$work/start.txt" || fail "message 113 is not shown"
kill "$mervak"
wait "$mervak" 2>/dev/null || true

# Again, without a file: the demo comes back.
"$bin/mervak" --home "$work/home" 2>>"$work/mervak.log" &
mervak=$!
main=$(wait_for_window "^Mervak - .*demo.mvw")
xdotool windowactivate --sync "$main"
xdotool key --clearmodifiers F12
tablet=$(wait_for_window "^Tauleta virtual - demo$")
eval "$(xdotool getwindowgeometry --shell "$tablet")"
screen_width=$(xdotool getdisplaygeometry | cut -d' ' -f1)
echo "virtual tablet ${WIDTH}x${HEIGHT} on a screen ${screen_width} wide"
[ "$WIDTH" -ge $((screen_width / 3)) ] || fail "the tablet is ${WIDTH} wide"
# The demo's sheet is 270 x 190 mm.
[ $((WIDTH * 190 / 270 - HEIGHT)) -le 2 ] && [ $((HEIGHT - WIDTH * 190 / 270)) -le 2 ] ||
  fail "the tablet ${WIDTH}x${HEIGHT} is not the sheet's shape"

xdotool windowactivate --sync "$(xdotool search --name '^Mervak demo$' | head -n 1)"
xdotool mousemove $((X + WIDTH / 4)) $((Y + HEIGHT / 4)) click 1
expect_received "hola " 5 first_hour

# A dialog closed, the keys go to Mervak again, not to the pupil's program.
xdotool windowactivate --sync "$main"
xdotool key --clearmodifiers alt+f Right Right Right Return
wait_for_window "^Dades Inicials$" >/dev/null
xdotool key --clearmodifiers Escape
sleep 1
active=$(xdotool getactivewindow)
[ "$active" = "$main" ] || fail "after the dialog the focus is on '$(xdotool getwindowname "$active")'"

# F1 opens the teacher's guide.
xdotool key --clearmodifiers F1
wait_for_window "^Guia del mestre$" >/dev/null
echo "PASS"
