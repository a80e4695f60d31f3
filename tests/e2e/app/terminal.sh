# Sourced by the scripts in which presses of the demo Template must reach a real
# terminal, after they set `bin` and `source`: a private folder with the demo and
# an empty home folder, the pupil's terminal, and the check of what it received.
work=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null || true; rm -rf "$work"' EXIT
export XDG_RUNTIME_DIR="$work"
received="$work/received.txt"
cp "$source/data/demo/demo.mvw" "$source/data/demo/demo.png" "$work/"
mkdir -p "$work/home"

# Mervak looks for its target when it starts: the terminal must be up by then.
start_terminal() {
  xterm -T "Mervak demo" -geometry 40x8+700+40 -e sh -c "stty -icanon -echo min 1; exec tee '$received'" &
  for _ in $(seq 300); do xdotool search --name "^Mervak demo$" >/dev/null 2>&1 && break; sleep 0.05; done
}

# Starts Mervak on the demo with the home folder's MERVAK.INI; its pid is `mervak`.
start_mervak() {
  "$bin/mervak" --home "$work/home" "$work/demo.mvw" 2>"$work/mervak.log" &
  mervak=$!
}

# Whether the terminal received exactly TEXT, line breaks at the end included.
received_is() {
  local text
  text=$(cat "$received" 2>/dev/null; echo x)
  [ "${text%x}" = "$1" ]
}

# Waits up to SECONDS for the terminal to hold exactly EXPECTED, then a second
# more, since nothing may follow; on a mismatch says what came, and fails.
#   expect_received EXPECTED SECONDS NAME
expect_received() {
  for _ in $(seq $(($2 * 10))); do
    received_is "$1" && break
    sleep 0.1
  done
  sleep 1
  received_is "$1" && return
  echo "FAIL ($3): the terminal received:"; od -c "$received" | head
  kill -0 "$mervak" 2>/dev/null && echo "mervak still runs" || echo "mervak ended"
  cat "$work/mervak.log"
  import -window root "${MERVAK_E2E_SHOT:-/tmp/$3-failure.png}" 2>/dev/null || true
  exit 1
}
