# Sourced: a headless sway of our own, its programs run by an unprivileged user
# (sway refuses to run as root), and foot terminals that write what they receive
# to files. Sets `work`, `out` (the terminals' folder) and exports WAYLAND_DISPLAY
# and SWAYSOCK, so that mervak-cli (run as the caller) reaches this compositor.
set -euo pipefail

work=$(mktemp -d)
chmod 755 "$work"
out="$work/out"
runtime="$work/run"
mkdir -p "$out" "$runtime"
sway_pid=
trap 'stop_sway' EXIT

# Root may reach the user's sockets; a plain user runs sway as itself.
as_user=()
if [ "$(id -u)" = 0 ]; then
  user=mervak-wl
  id "$user" >/dev/null 2>&1 || useradd --system --no-create-home --shell /usr/sbin/nologin "$user"
  chown "$user:" "$out" "$runtime"
  as_user=(setpriv --reuid="$user" --regid="$user" --init-groups --)
fi
chmod 700 "$runtime"
chmod 755 "$out"

stop_sway() {
  [ -n "$sway_pid" ] && kill "$sway_pid" 2>/dev/null && wait "$sway_pid" 2>/dev/null || true
  rm -rf "$work"
}

# With "xwayland", X11 programs get an XWayland display, exported as DISPLAY.
#   start_sway [xwayland]
start_sway() {
  local xwayland=disable
  [ "${1:-}" = xwayland ] && xwayland=enable
  cat >"$work/config" <<CONFIG
xwayland $xwayland
default_border none
focus_follows_mouse no
CONFIG
  chmod 644 "$work/config"
  "${as_user[@]}" env -i HOME="$work" PATH=/usr/bin:/bin LANG=C.UTF-8 XDG_RUNTIME_DIR="$runtime" \
    WLR_BACKENDS=headless WLR_RENDERER=pixman WLR_LIBINPUT_NO_DEVICES=1 \
    sway -c "$work/config" >"$work/sway.log" 2>&1 &
  sway_pid=$!
  for _ in $(seq 100); do
    SWAYSOCK=$(ls "$runtime"/sway-ipc.*.sock 2>/dev/null || true)
    [ -n "$SWAYSOCK" ] && [ -S "$runtime/wayland-1" ] && break
    sleep 0.05
  done
  if [ -z "$SWAYSOCK" ]; then
    echo "FAIL: sway did not start"; cat "$work/sway.log"; exit 1
  fi
  export SWAYSOCK WAYLAND_DISPLAY="$runtime/wayland-1"
  unset DISPLAY XDG_SESSION_TYPE
  [ "$xwayland" = enable ] || return 0
  # sway names the display in its programs' environment.
  swaymsg -q "exec echo \$DISPLAY >$out/display"
  for _ in $(seq 100); do
    [ -s "$out/display" ] && break
    sleep 0.05
  done
  DISPLAY=$(cat "$out/display" 2>/dev/null)
  [ -n "$DISPLAY" ] || { echo "FAIL: sway has no XWayland display"; cat "$work/sway.log"; exit 1; }
  export DISPLAY
}

# Opens a foot titled TITLE whose terminal is raw (every byte as it comes, no
# echo) and writes what it receives to $out/FILE; after PREFIX printed.
#   start_foot TITLE FILE [PREFIX]
start_foot() {
  cat >"$work/$1.sh" <<SCRIPT
#!/bin/sh
stty raw -echo
printf '${3:-}'
exec cat > '$out/$2'
SCRIPT
  chmod 755 "$work/$1.sh"
  swaymsg -q "exec foot -o pad=0x0 --title $1 $work/$1.sh"
  for _ in $(seq 200); do
    [ -e "$out/$2" ] && swaymsg -t get_tree | grep -q "\"name\": \"$1\"" && return
    sleep 0.05
  done
  echo "FAIL: foot $1 did not start"; cat "$work/sway.log"; exit 1
}

# Waits up to SECONDS for FILE (from byte FROM on, 0 when not given) to hold
# exactly EXPECTED (bytes), then a moment more since nothing may follow; on a
# mismatch says what came, and fails.
#   expect_file FILE EXPECTED SECONDS NAME [FROM]
expect_file() {
  local file="$out/$1" from=$((${5:-0} + 1))
  for _ in $(seq $(($3 * 20))); do
    [ "$(tail -c +$from "$file" | od -An -c)" = "$(printf '%s' "$2" | od -An -c)" ] && break
    sleep 0.05
  done
  sleep 0.3
  [ "$(tail -c +$from "$file" | od -An -c)" = "$(printf '%s' "$2" | od -An -c)" ] && return
  echo "FAIL ($4): $1 holds:"; tail -c +$from "$file" | od -c | head -20
  echo "expected:"; printf '%s' "$2" | od -c | head -20
  exit 1
}
