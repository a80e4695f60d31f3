#!/usr/bin/env bash
# Packets from the simulated serial tablet on a pseudo-terminal fire Areas whose
# ActionTexts reach a real terminal, accents, Enter and memory commands included.
#   press_to_keystroke.sh BIN_DIR SOURCE_DIR   (run inside scripts/with-display.sh)
set -euo pipefail
bin=$1
source=$2
work=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null || true; rm -rf "$work"' EXIT
export XDG_RUNTIME_DIR="$work"
received="$work/received.txt"
cp "$source/data/demo/demo.mvw" "$source/data/demo/demo.png" "$work/"

xterm -T "Mervak demo" -geometry 40x8+700+40 -e sh -c "stty -icanon -echo min 1; exec tee '$received'" &
# Mervak looks for its target when it starts: the terminal must be up by then.
for _ in $(seq 300); do xdotool search --name "^Mervak demo$" >/dev/null 2>&1 && break; sleep 0.05; done
coproc SIM { "$bin/mervak-tablet-sim" "wait 1500; press 30 90 3 20; lift; wait 700;
  press 90 90 3 20; lift; wait 700; press 30 30 3 20; lift; wait 700;
  press 90 30 3 20; lift; wait 700; press 90 30 3 20; lift; wait 700;
  press 90 30 3 20; lift; wait 700; press 30 30 3 20; lift; wait 1500; quit"; }
read -r port <&"${SIM[0]}"
mkdir -p "$work/home"
printf '[Mervak]\r\nModel=EASY\r\nPort=%s\r\n' "$port" >"$work/home/MERVAK.INI"
"$bin/mervak" --home "$work/home" "$work/demo.mvw" 2>"$work/mervak.log" &
mervak=$!
wait "$SIM_PID" || true
sleep 0.5
expected=$'hola ad\u00e9u\n\u00e7\u20ac\u00f1 1\n2\n'
text=$(cat "$received"; echo x)
text=${text%x}
if [ "$text" != "$expected" ]; then
  echo "FAIL: the terminal received:"; printf '%s' "$text" | od -c | head
  echo "windows: $(xdotool search --name . 2>/dev/null | while read -r w; do xdotool getwindowname "$w"; done | tr '\n' '|')"
  kill -0 "$mervak" 2>/dev/null && echo "mervak still runs" || echo "mervak ended"
  cat "$work/mervak.log"
  import -window root "${MERVAK_E2E_SHOT:-/tmp/press_to_keystroke-failure.png}" 2>/dev/null || true
  exit 1
fi
echo "PASS: the terminal received every press, in order"
