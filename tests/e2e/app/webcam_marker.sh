#!/usr/bin/env bash
# A webcam video of a sheet in perspective, with a red marker resting on three
# Areas in turn, drives Mervak with Model=VISTAL and [WEBCAM] corners that match
# the video: the Areas' ActionTexts reach a real terminal, in order.
#   webcam_marker.sh BIN_DIR SOURCE_DIR   (run inside scripts/with-display.sh)
set -euo pipefail
bin=$1
source=$2
. "$(dirname "$0")/terminal.sh"

{
  printf '[Mervak]\r\nModel=VISTAL\r\nRetardPort=20\r\n[WEBCAM]\r\nCamera=%s\r\n' "$work/marker.y4m"
  # The marker rests a second on each cell of the 0..120 sheet grid, out of view between.
  "$bin/mervak-camscene" "$work/marker.y4m" --fps 15 --hold 15 --gap 15 30,90 90,90 30,30 |
    sed 's/$/\r/'
} >"$work/home/MERVAK.INI"

start_terminal
start_mervak
expect_received $'hola ad\u00e9u\n\u00e7\u20ac\u00f1 ' 15 webcam_marker
echo "PASS: the marker's Areas reached the terminal, in order"
