#!/usr/bin/env bash
# Shows Mervak's main job without a display or a tablet: inside a private X display,
# a terminal plays the pupil's program and the tablet simulator presses the Areas
# of the demo Template. Prints what the terminal received and saves a screenshot.
#   scripts/demo.sh BUILD_DIR
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/release}
bin="$PWD/$build/bin"
work=$(mktemp -d /tmp/mervak-demo.XXXXXX)
received="$work/received.txt"
shot="$PWD/build/demo-screenshot.png"

if [ -z "${DISPLAY:-}" ] || [ "${MERVAK_DEMO_NESTED:-}" != 1 ]; then
  exec env MERVAK_DEMO_NESTED=1 scripts/with-display.sh "$0" "$@"
fi
export XDG_RUNTIME_DIR="$work"

# The pupil's program: a terminal that writes every key it gets to a file.
xterm -T "Mervak demo" -geometry 60x12+700+40 -e sh -c "stty -icanon -echo min 1; exec tee '$received'" &
terminal=$!

# The tablet: presses the three words, goes to page 2 and back twice, counting.
coproc SIM { "$bin/mervak-tablet-sim" "wait 1500; press 30 90 3 20; lift; wait 700;
  press 90 90 3 20; lift; wait 700; press 30 30 3 20; lift; wait 700;
  press 90 30 3 20; lift; wait 700; press 90 30 3 20; lift; wait 700;
  press 90 30 3 20; lift; wait 700; press 30 30 3 20; lift; wait 1500; quit"; }
read -r port <&"${SIM[0]}"

mkdir -p "$work/home"
printf '[Mervak]\r\nIDIOMA=CATALA\r\nModel=EASY\r\nPort=%s\r\n' "$port" >"$work/home/MERVAK.INI"
cp data/demo/demo.mvw data/demo/demo.png "$work/"

echo "Mervak demo: display $DISPLAY, simulated tablet on $port"
"$bin/mervak" --home "$work/home" "$work/demo.mvw" &
mervak=$!
wait "$SIM_PID" 2>/dev/null || true
# Bring the main window back from its compact state for the picture.
xdotool search --name "^Mervak - " windowactivate 2>/dev/null || true
sleep 1
import -window root "$shot" 2>/dev/null || true
kill "$mervak" "$terminal" 2>/dev/null || true
wait 2>/dev/null || true

echo "The terminal received: $(cat "$received" 2>/dev/null | tr '\r' '\n' | sed 's/^/  /')"
echo "Screenshot of the screen during the demo: $shot"
