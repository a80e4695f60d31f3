#!/usr/bin/env bash
# mervak-cli types into foot on a real headless sway: an accented line with chords
# and Enter, five times, each run a new process (so a new virtual keyboard on a
# seat that had none) into the window found by its title while another has the
# focus, through sway's IPC and then through the foreign toplevel list; then a
# click lands on the pixel of the window it names.
#   cli_types_into_foot.sh BIN_DIR
bin=$1
for program in sway foot swaymsg; do
  command -v "$program" >/dev/null || { echo "SKIP: $program missing"; exit 77; }
done
source "$(dirname "$0")/sway-session.sh"
start_sway
start_foot mervak-typed typed.txt
start_foot mervak-mouse mouse.txt '\033[?1000h\033[?1006h\033[?1016h'
start_foot mervak-decoy decoy.txt

line='Déjà vu: ça, l·l €5 ¿Ñandú? ŒÆ ß'
keys="$line^a%b+(xyz){ENTER}"
expected=
for run in 1 2 3 4 5; do
  swaymsg -q '[title="mervak-decoy"] focus'
  "$bin/mervak-cli" action --target mervak-typed "$keys" 2>"$work/cli.log" ||
    { echo "FAIL: run $run"; cat "$work/cli.log"; exit 1; }
  expected+="$line"$'\001\033bXYZ\r'
  expect_file typed.txt "$expected" 5 "run $run"
done

# Without sway's IPC the window is found through the foreign toplevel list.
swaymsg -q '[title="mervak-decoy"] focus'
env -u SWAYSOCK "$bin/mervak-cli" action --target mervak-typed "$keys" 2>"$work/cli.log" ||
  { echo "FAIL: run without sway's IPC"; cat "$work/cli.log"; exit 1; }
expected+="$line"$'\001\033bXYZ\r'
expect_file typed.txt "$expected" 5 "foreign toplevel list"

# The window's own pixel 100,50: foot reports it 1-based, in SGR pixel mode.
"$bin/mervak-cli" action --target mervak-mouse "{|Mouse M 100 50 CE}{ENTER}" 2>"$work/cli.log" ||
  { echo "FAIL: click"; cat "$work/cli.log"; exit 1; }
expect_file mouse.txt $'\033[<0;101;51M\033[<0;101;51m\r' 5 click

expect_file decoy.txt "" 1 "nothing for the focused window"
echo "PASS: six accented runs with chords, a click at its pixel, the target found by title"
