#!/usr/bin/env bash
# A webcam video of a sheet in perspective, with a red marker resting on three
# Areas in turn, drives Mervak with Model=VISTAL and [WEBCAM] corners that match
# the video: the Areas' ActionTexts reach a real terminal, in order.
#   webcam_marker.sh BIN_DIR SOURCE_DIR   (run inside scripts/with-display.sh)
set -euo pipefail
bin=$1
source=$2
work=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null || true; rm -rf "$work"' EXIT
export XDG_RUNTIME_DIR="$work"
received="$work/received.txt"
cp "$source/data/demo/demo.mvw" "$source/data/demo/demo.png" "$work/"

mkdir -p "$work/home"
{
  printf '[Mervak]\r\nModel=VISTAL\r\nRetardPort=20\r\n[WEBCAM]\r\nCamera=%s\r\n' "$work/marker.y4m"
  # The marker rests a second on each cell of the 0..120 sheet grid, out of view between.
  "$bin/mervak-camscene" "$work/marker.y4m" --fps 15 --hold 15 --gap 15 30,90 90,90 30,30 |
    sed 's/$/\r/'
} >"$work/home/MERVAK.INI"

xterm -T "Mervak demo" -geometry 40x8+700+40 -e sh -c "stty -icanon -echo min 1; exec tee '$received'" &
for _ in $(seq 300); do xdotool search --name "^Mervak demo$" >/dev/null 2>&1 && break; sleep 0.05; done
"$bin/mervak" --home "$work/home" "$work/demo.mvw" 2>"$work/mervak.log" &
mervak=$!
sleep 9
expected=$'hola ad\u00e9u\n\u00e7\u20ac\u00f1 '
text=$(cat "$received"; echo x)
text=${text%x}
if [ "$text" != "$expected" ]; then
  echo "FAIL: the terminal received:"; printf '%s' "$text" | od -c | head
  kill -0 "$mervak" 2>/dev/null && echo "mervak still runs" || echo "mervak ended"
  cat "$work/mervak.log"
  import -window root "${MERVAK_E2E_SHOT:-/tmp/webcam_marker-failure.png}" 2>/dev/null || true
  exit 1
fi
echo "PASS: the marker's Areas reached the terminal, in order"
