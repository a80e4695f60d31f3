#!/usr/bin/env bash
# Speech, a wave tone and MIDI music from `mervak-cli action`, heard on a private
# PulseAudio null sink whose monitor is recorded; then the same with no sound
# server at all, where each ends at once with its reason.
#   speech_and_sound.sh BIN_DIR   (run inside scripts/with-display.sh)
set -euo pipefail
cli=$1/mervak-cli
for program in pulseaudio pactl parec sox xterm xdotool; do
  command -v "$program" >/dev/null || { echo "SKIP: $program is missing"; exit 77; }
done
work=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null || true; rm -rf "$work"' EXIT
export XDG_RUNTIME_DIR="$work/run"
mkdir -m 700 "$XDG_RUNTIME_DIR"
pulseaudio -n --daemonize=no --exit-idle-time=-1 -L "module-null-sink sink_name=nullsink" \
  -L module-native-protocol-unix >"$work/pulse.log" 2>&1 &
pulse=$!
for _ in $(seq 100); do pactl info >/dev/null 2>&1 && break; sleep 0.1; done
sox -n -r 22050 -c 1 -b 16 "$work/TONE.WAV" synth 1.0 sine 440 vol 0.5
# Two notes of half a second: "MThd", then one track.
printf 'MThd\0\0\0\6\0\0\0\1\0\140MTrk\0\0\0\24\0\220\74\144\140\200\74\100\0\220\100\144\140\200\100\100\0\377\57\0' \
  >"$work/M.MID"
failures=0
fail() { echo "FAIL: $1"; failures=$((failures + 1)); }

record() { parec --raw --latency-msec=10 -d nullsink.monitor >"$work/$1.raw" & }
# The sound left once the silence at both ends is cut: "length frequency".
heard() {
  sox -t raw -r 44100 -c 2 -b 16 -e signed "$work/$1.raw" -c 1 "$work/$1.wav" \
    silence 1 0.01 2% reverse silence 1 0.01 2% reverse 2>/dev/null
  sox "$work/$1.wav" -n stat 2>&1 | awk '/^Length/ {l=$3} /^Rough/ {f=$3} END {print l+0, f+0}'
}
run() { timeout 20 "$cli" action "$1" --target "${2:-|}" --folder "$work" 2>>"$work/errors.txt"; }

for text in "{|Llegir bon dia}" "{|Leer buenos días}" "{|Sona M.MID}"; do
  record clip
  recorder=$!
  run "$text" || fail "$text ended with status $?"
  sleep 0.2
  kill "$recorder"
  read -r length _ < <(heard clip)
  awk -v l="$length" 'BEGIN {exit !(l > 0.3)}' || fail "$text: ${length}s heard"
done

# "b" must reach the terminal only once the tone has been heard to its end: the
# recording taken when "b" arrives holds the whole second of 440 Hz.
typed="$work/typed.txt"
xterm -T "sound target" -e sh -c "stty -icanon -echo min 1; exec tee '$typed'" &
for _ in $(seq 300); do xdotool search --name "^sound target$" >/dev/null 2>&1 && break; sleep 0.05; done
sleep 0.5
record tone
recorder=$!
run "a{|Sona TONE.WAV}b" "sound target" &
typing=$!
for _ in $(seq 400); do grep -q b "$typed" 2>/dev/null && break; sleep 0.005; done
cp "$work/tone.raw" "$work/at-b.raw"
wait "$typing" || fail "the tone run ended with status $?"
kill "$recorder"
read -r length frequency < <(heard at-b)
[ "$(cat "$typed")" = ab ] || fail "the terminal received '$(cat "$typed")'"
awk -v l="$length" -v f="$frequency" 'BEGIN {exit !(l > 0.97 && l < 1.1 && f > 420 && f < 460)}' ||
  fail "when b arrived the recording held ${length}s of sound at ${frequency} Hz"

kill "$pulse"
wait "$pulse" 2>/dev/null || true
: >"$work/errors.txt"
for text in "{|Llegir bon dia}" "{|Sona TONE.WAV}" "{|Sona M.MID}"; do
  if run "$text"; then fail "$text succeeded without a sound server"; fi
done
[ "$(grep -c "No hi ha sortida de so" "$work/errors.txt")" = 3 ] ||
  fail "without a server: $(cat "$work/errors.txt")"
[ "$failures" = 0 ] || exit 1
echo "PASS: speech, tone and MIDI heard; b after the tone; no server said at once"
