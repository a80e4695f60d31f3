#!/usr/bin/env bash
# Refreshes docs/screenshot-webcam.png: Mervak with Model=VISTAL follows a
# generated webcam video of a sheet in perspective, and its calibration form is
# grabbed with the live picture, the marker ringed, in test mode.
#   scripts/screenshot-webcam.sh [BUILD_DIR]      (default build/release)
# Needs Xvfb, openbox, xdotool and imagemagick (import).
. "$(dirname "$0")/shots-common.sh"
cp data/demo/demo.mvw data/demo/demo.png "$work/"
{
  printf '[Mervak]\r\nIDIOMA=CATALA\r\nModel=VISTAL\r\n[WEBCAM]\r\nCamera=%s\r\n' "$work/marker.y4m"
  # A minute of the marker resting on one cell of the sheet.
  "$build/bin/mervak-camscene" "$work/marker.y4m" --fps 15 --hold 900 --gap 0 30,90 |
    sed 's/$/\r/'
} >"$work/home/MERVAK.INI"

"$build/bin/mervak" --home "$work/home" "$work/demo.mvw" &
mervak=$!

main=$(window '^Mervak - ')
xdotool windowfocus --sync "$main"
settle
# Plantilla > Calibrar Vistal: from the Fitxers menu three menus to the right,
# its third entry.
xdotool key alt+f Right Right Right Down Down Return
form=$(window '^Calibrar Vistal$')
xdotool windowfocus --sync "$form"
settle
# Test mode shows the marker's place on the sheet grid.
# The Test button, in the side column.
xdotool mousemove --window "$form" 766 168 click 1
settle
import -window "$form" docs/screenshot-webcam.png
echo "Refreshed docs/screenshot-webcam.png"
