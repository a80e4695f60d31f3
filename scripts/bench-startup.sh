#!/usr/bin/env bash
# Measures the time from starting Mervak to its main window being shown, and its
# resident memory a second later, RUNS times (five unless told).
#   scripts/with-display.sh scripts/bench-startup.sh BIN_DIR [RUNS]
set -euo pipefail
bin=$1
runs=${2:-5}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export XDG_RUNTIME_DIR="$work"
mkdir -p "$work/home"
# A serial port that does not exist: the start-up path without waiting for a tablet.
printf '[Mervak]\r\nModel=EASY\r\nPort=/dev/nonexistent\r\n' >"$work/home/MERVAK.INI"
for _ in $(seq "$runs"); do
  start=$(date +%s%N)
  "$bin/mervak" --home "$work/home" >/dev/null 2>&1 &
  pid=$!
  until xdotool search --onlyvisible --name "^Mervak - " >/dev/null 2>&1; do
    kill -0 "$pid" 2>/dev/null || { echo "mervak ended before showing its window" >&2; exit 1; }
    sleep 0.005
  done
  shown=$(date +%s%N)
  sleep 1
  rss=$(awk '/VmRSS/ {print $2}' "/proc/$pid/status")
  echo "start-up to shown window: $(((shown - start) / 1000000)) ms, resident memory $((rss / 1024)) MB"
  kill "$pid"
  wait "$pid" 2>/dev/null || true
done
