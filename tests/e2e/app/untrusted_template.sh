#!/usr/bin/env bash
# A Template from an unknown folder whose first Area starts a program and whose
# second types a word: the presses type the word and start nothing, while Mervak
# asks whether to allow it (a locked session does not ask). The same Template in
# a folder MERVAK.INI trusts starts the program.
#   untrusted_template.sh BIN_DIR SOURCE_DIR   (run inside scripts/with-display.sh)
set -euo pipefail
bin=$1
source=$2
. "$(dirname "$0")/terminal.sh"
created="$work/created"

# Copies the demo into FOLDER with its first Area starting `touch`.
place_template() {
  mkdir -p "$1"
  sed "s|^\"hola \"|\"{\|Executa touch $created}\"|" "$work/demo.mvw" >"$1/demo.mvw"
  cp "$work/demo.png" "$1/"
}

# Presses Area 1 then Area 2 of FOLDER's Template with MERVAK.INI's LINES and
# Mervak's further OPTIONS.
#   press_both FOLDER LINES [OPTIONS...]
press_both() {
  coproc SIM { "$bin/mervak-tablet-sim" "wait 3000; press 30 90 3 20; lift; wait 700;
    press 90 90 3 20; lift; wait 1500; quit"; }
  read -r port <&"${SIM[0]}"
  printf '[Mervak]\r\nModel=EASY\r\nPort=%s\r\n%s' "$port" "$2" >"$work/home/MERVAK.INI"
  "$bin/mervak" --home "$work/home" "${@:3}" "$1/demo.mvw" 2>"$work/mervak.log" &
  mervak=$!
  wait "$SIM_PID" || true
}

place_template "$work/baixades"
place_template "$work/escola"
start_terminal

# Whether Mervak's question shows.
asked() { xdotool search --onlyvisible --name "^Plantilla que no " >/dev/null 2>&1; }

# Closes Mervak and checks that the program was not started, and why.
expect_skipped() {
  kill "$mervak"
  wait "$mervak" || true
  [ ! -e "$created" ] || { echo "FAIL ($1): the untrusted Template started a program"; exit 1; }
  grep -qF "no s'ha fet \"EXECUTA touch $created\"" "$work/mervak.log" ||
    { echo "FAIL ($1): no log line for the skipped command"; cat "$work/mervak.log"; exit 1; }
}

press_both "$work/baixades" ""
expect_received $'ad\u00e9u\n' 10 untrusted_template
import -window root "${MERVAK_E2E_SHOT:-$work/question.png}" 2>/dev/null || true
asked || { echo "FAIL: no question about the untrusted Template"; exit 1; }
expect_skipped untrusted_template

press_both "$work/baixades" "" --locked
expect_received $'ad\u00e9u\nad\u00e9u\n' 10 untrusted_locked
! asked || { echo "FAIL: a locked session asked about the Template"; exit 1; }
expect_skipped untrusted_locked

press_both "$work/escola" $'[Seguretat]\r\nCarpetesDeConfianca=~/nowhere;'"$work/escola"$'\r\n'
expect_received $'ad\u00e9u\nad\u00e9u\nad\u00e9u\n' 10 trusted_template
for _ in $(seq 30); do [ -e "$created" ] && break; sleep 0.1; done
[ -e "$created" ] || { echo "FAIL: the trusted Template did not start its program"; exit 1; }
echo "PASS: the untrusted Template typed but started nothing, asking only when unlocked; the trusted one started it"
