#!/usr/bin/env bash
# Runs a command inside a private X display with a window manager:
#   scripts/with-display.sh COMMAND [ARGS...]
# Starts Xvfb on a free display and openbox, exports DISPLAY, runs the command and
# tears everything down, whatever the command's outcome.
set -euo pipefail

fifo=$(mktemp -u)
mkfifo "$fifo"
Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp 3>"$fifo" &
xvfb=$!
read -r number <"$fifo"
rm -f "$fifo"
export DISPLAY=":$number"
# A plain X11 session, even when started from a Wayland desktop.
unset WAYLAND_DISPLAY XDG_SESSION_TYPE
openbox >/tmp/mervak-openbox.log 2>&1 &
wm=$!
cleanup() { kill "$wm" "$xvfb" 2>/dev/null || true; wait 2>/dev/null || true; }
trap cleanup EXIT
# Give the window manager a moment to take the root window.
for _ in $(seq 150); do
  xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q window && break
  sleep 0.1
done
"$@"
