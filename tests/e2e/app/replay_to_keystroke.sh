#!/usr/bin/env bash
# An evemu recording replayed as the device (a pen tablet, or a dance pad) fires
# Areas whose ActionTexts reach a real terminal, across a page change.
#   replay_to_keystroke.sh BIN_DIR SOURCE_DIR tablet|dancepad   (inside scripts/with-display.sh)
set -euo pipefail
bin=$1
source=$2
kind=$3
. "$(dirname "$0")/terminal.sh"

# The demo's Areas: "hola " top left, "adéu" Enter top right, "çۖ " bottom left,
# page 2 bottom right; page 2 is one Area that counts and returns to page 1.
# The dance pad's default buttons press the cells left (1), right (4),
# bottom left (7) and bottom (2). Presses are shorter than the 50 ms poll: a
# press still held at the next poll after a page change fires the new page's Area.
if [ "$kind" = tablet ]; then
  model=DIL
  presses=(30 90 90 90 30 30 90 30 90 30 90 30 30 30)
  script="wait 3000"
  for ((i = 0; i < ${#presses[@]}; i += 2)); do
    script+="; press ${presses[i]} ${presses[i + 1]} 40; wait 700"
  done
else
  model=DANCEPAD
  script="wait 3000"
  for button in 1 4 7 2 2 2 7; do script+="; button $button 40; wait 700"; done
fi
"$bin/mervak-evemu-script" --device "$kind" -o "$work/device.evemu" "$script"

start_terminal
printf '[Mervak]\r\nModel=%s\r\nPort=%s\r\n' "$model" "$work/device.evemu" >"$work/home/MERVAK.INI"
start_mervak
expect_received $'hola ad\u00e9u\n\u00e7\u20ac\u00f1 1\n2\n' 15 "replay_$kind"
echo "PASS ($kind): the terminal received every press, in order"
