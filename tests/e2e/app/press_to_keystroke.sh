#!/usr/bin/env bash
# Packets from the simulated serial tablet on a pseudo-terminal fire Areas whose
# ActionTexts reach a real terminal, accents, Enter and memory commands included; the
# keycodes borrowed for the accents go back once the presses pause.
#   press_to_keystroke.sh BIN_DIR SOURCE_DIR   (run inside scripts/with-display.sh)
set -euo pipefail
bin=$1
source=$2
. "$(dirname "$0")/terminal.sh"

start_terminal
coproc SIM { "$bin/mervak-tablet-sim" "wait 1500; press 30 90 3 20; lift; wait 700;
  press 90 90 3 20; lift; wait 700; press 30 30 3 20; lift; wait 700;
  press 90 30 3 20; lift; wait 700; press 90 30 3 20; lift; wait 700;
  press 90 30 3 20; lift; wait 700; press 30 30 3 20; lift; wait 1500; quit"; }
read -r port <&"${SIM[0]}"
printf '[Mervak]\r\nModel=EASY\r\nPort=%s\r\n' "$port" >"$work/home/MERVAK.INI"
keymap() { xkbcomp -xkb "$DISPLAY" - 2>/dev/null; }
keymap_before=$(keymap)
start_mervak
wait "$SIM_PID" || true
expect_received $'hola ad\u00e9u\n\u00e7\u20ac\u00f1 1\n2\n' 10 press_to_keystroke
for _ in $(seq 100); do
  [ "$(keymap)" = "$keymap_before" ] && break
  sleep 0.1
done
if [ "$(keymap)" != "$keymap_before" ]; then
  echo "FAIL: the keyboard map is not as it was before Mervak typed"
  diff <(echo "$keymap_before") <(keymap) | head -20
  exit 1
fi
echo "PASS: the terminal received every press, in order, and the keyboard map is as found"
