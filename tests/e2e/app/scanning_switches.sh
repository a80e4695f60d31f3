#!/usr/bin/env bash
# Two switch keys scan a 2 x 2 sheet of four words, row by row and then item by
# item: each choice types its word into the terminal, which keeps the focus and
# never sees the switch keys; a choice that changes page scans the new page.
#   scanning_switches.sh BIN_DIR SOURCE_DIR   (run inside scripts/with-display.sh)
# With MERVAK_SCAN_SHOT set, the screen is saved there with the first row highlighted.
set -euo pipefail
bin=$1
source=$2
. "$(dirname "$0")/terminal.sh"

# Page 1: "sol" "lluna" over "mar" "terra" (which goes to page 2); page 2: "foc"
# beside "aire" (which goes back).
record() { printf ' %s \r\n %s \r\n %s \r\n %s \r\n %s \r\n""\r\n"%s"\r\n 0 \r\n' "$@"; }
{
  printf ' 2 \r\n 0 \r\n\r\n 6 \r\n""\r\n 0 \r\n""\r\n""\r\n""\r\n"Mervak demo"\r\n""\r\n 2 \r\n 0 \r\n'
  printf ' 0 \r\n 0 \r\n 0 \r\n 100 \r\n'
  record 0 60 59 119 1 "sol "
  record 60 60 119 119 1 "lluna "
  record 0 0 59 59 1 "mar "
  record 60 0 119 59 1 "terra {|Pagina 2}"
  record 0 0 59 119 2 "foc "
  record 60 0 119 119 2 "aire {|Pagina 1}"
} >"$work/scan.mvw"

fail() { echo "FAIL: $*"; cat "$work/mervak.log"; exit 1; }

# Starts Mervak scanning in MODE, waits for it, and gives the terminal the focus.
start_scanning() {
  printf '[Mervak]\r\nModel=DIL\r\n[Exploracio]\r\nMode=%s\r\nCommutadors=2\r\nAvancar=F5\r\nSeleccionar=F6\r\nAcceptacio=0\r\nPausa=300\r\n' \
    "$1" >"$work/home/MERVAK.INI"
  "$bin/mervak" --home "$work/home" "$work/scan.mvw" 2>"$work/mervak.log" &
  mervak=$!
  # Without a tablet Mervak starts quietly; the machine may be busy: it gets 30 s
  # to show its window, then the terminal is the pupil's.
  main=
  for _ in $(seq 300); do
    main=$(xdotool search --onlyvisible --name "^Mervak - " 2>/dev/null | head -n 1) && [ -n "$main" ] && break
    kill -0 "$mervak" 2>/dev/null || fail "Mervak ended"
    sleep 0.1
  done
  [ -n "$main" ] || fail "Mervak did not start"
  terminal=$(xdotool search --name "^Mervak demo$" | head -n 1)
  xdotool windowactivate --sync "$terminal"
  sleep 0.5
}

# Presses the switch keys in turn, as a pupil would, leaving the pause after a
# choice (300 ms) and the typing their time.
switches() {
  for key in "$@"; do
    xdotool key "$key"
    if [ "$key" = F6 ]; then sleep 0.6; else sleep 0.15; fi
  done
}

# Presses the keys, then waits until the terminal has received TEXT in all, and
# for scanning to start again after the pause.
#   choose TEXT KEY...
choose() {
  local text=$1
  shift
  switches "$@"
  for _ in $(seq 50); do received_is "$text" && break; sleep 0.1; done
  sleep 0.4
}

stop_mervak() {
  kill "$mervak"
  wait "$mervak" 2>/dev/null || true
}

start_terminal
start_scanning files
# "lluna": the first row, its second item.
choose "lluna " F5 F6 F5 F6
# The first row highlighted; then "mar", "terra" (page 2) and "foc".
switches F5
[ -z "${MERVAK_SCAN_SHOT:-}" ] || import -window root "$MERVAK_SCAN_SHOT"
choose "lluna mar " F5 F6 F6
choose "lluna mar terra " F5 F5 F6 F5 F6
choose "lluna mar terra foc " F5 F6 F6
expect_received "lluna mar terra foc " 5 scanning_rows
[ "$(xdotool getactivewindow)" = "$terminal" ] || fail "the terminal lost the focus"
stop_mervak

start_scanning elements
# "sol", then "terra" (page 2), then "aire" (page 1 again), then "lluna".
words="lluna mar terra foc "
choose "${words}sol " F5 F6
choose "${words}sol terra " F5 F5 F5 F5 F6
choose "${words}sol terra aire " F5 F5 F6
choose "${words}sol terra aire lluna " F5 F5 F6
expect_received "${words}sol terra aire lluna " 5 scanning_items
[ "$(xdotool getactivewindow)" = "$terminal" ] || fail "the terminal lost the focus"
stop_mervak
echo "PASS: each choice typed its word; the switch keys never reached the terminal"
