#!/usr/bin/env bash
# Mervak against a hostile serial line and a broken Template, in a private display:
#   1. each Area of a Template whose ActionTexts are malformed is pressed once;
#   2. random bytes in bursts, mixed with real presses, for MERVAK_ROBUSTNESS_SECONDS
#      (default 120);
#   3. the tablet simulator is killed (SIGKILL) while a press is held.
# Passes when Mervak is still running with its window after each step and its
# resident memory in the last minute of step 2 is within a few MiB of the first.
# Screenshots of every step go to OUT_DIR/robustness-shots/ for a person to read
# the status line.
#   robustness.sh BIN_DIR OUT_DIR
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
source_dir=$(cd "$here/../../.." && pwd)
bin=$(cd "$1" && pwd)
shots="$2/robustness-shots"
seconds=${MERVAK_ROBUSTNESS_SECONDS:-120}
max_growth_kib=5120 # "a few MiB": caches settling, not a leak
# Under AddressSanitizer freed memory waits in a quarantine before reuse, which
# reads as growth; a small one keeps the check about leaks (ignored elsewhere).
export ASAN_OPTIONS="${ASAN_OPTIONS:+$ASAN_OPTIONS:}quarantine_size_mb=1"

for program in Xvfb openbox xterm xdotool import; do
  command -v "$program" >/dev/null || { echo "SKIP: $program is not installed"; exit 77; }
done
if ! [[ $seconds =~ ^[0-9]+$ ]] || ((seconds < 10)); then
  echo "FAIL: MERVAK_ROBUSTNESS_SECONDS must be a whole number of 10 or more, not \"$seconds\""
  exit 2
fi
if [ "${MERVAK_ROBUSTNESS_NESTED:-}" != 1 ]; then
  exec env MERVAK_ROBUSTNESS_NESTED=1 "$source_dir/scripts/with-display.sh" "$0" "$@"
fi

work=$(mktemp -d /tmp/mervak-robustness.XXXXXX)
mervak=""
terminal=""
simulator=""
cleanup() {
  for pid in $mervak $terminal $simulator; do kill "$pid" 2>/dev/null || true; done
  wait 2>/dev/null || true
  rm -rf "$work"
}
trap cleanup EXIT
export XDG_RUNTIME_DIR="$work" # a private single-instance lock
mkdir -p "$shots" "$work/home"
rm -f "$shots"/*.png
received="$work/received.txt"
title="Mervak robustness"

# The Template, version 2 layout: a 3 x 3 grid of Areas 40 units wide on page 1.
# The first two type letters; the rest hold the malformed ActionTexts.
long_text=$(printf 'abcdefghij%.0s' $(seq 200)) # 2000 characters
texts=("a" "b" "{UNKNOWN}" "{|" "+(" "{|M+ {|RM }" "$long_text" "{|Pagina 99}"
  "{|Executa /nonexistent}")
names=(letter-a letter-b unknown-key open-command open-group memory-loop long-text
  page-99 execute-missing)
centre() { echo $((20 + 40 * $1)); }
write_template() {
  local line=$'\r\n' i column row
  {
    printf ' 2 %s 0 %s%s' "$line" "$line" "$line"       # version, revision, no sheet
    printf ' %d %s""%s 0 %s' "${#texts[@]}" "$line" "$line" "$line"
    printf '""%s""%s""%s"%s"%s' "$line" "$line" "$line" "$title" "$line"
    printf '"Malformed ActionTexts"%s 1 %s 0 %s' "$line" "$line" "$line"
    printf ' 0 %s 0 %s 0 %s 0 %s' "$line" "$line" "$line" "$line"
    for i in "${!texts[@]}"; do
      column=$((i % 3)) row=$((i / 3))
      printf ' %d %s %d %s %d %s %d %s 1 %s' $((1 + 40 * column)) "$line" $((1 + 40 * row)) \
        "$line" $((39 + 40 * column)) "$line" $((39 + 40 * row)) "$line" "$line"
      printf '""%s"%s"%s 0 %s' "$line" "${texts[i]}" "$line" "$line"
    done
  } >"$work/robust.mvw"
}
write_template

alive() { # $1: when
  if ! kill -0 "$mervak" 2>/dev/null || grep -q '^State:[[:space:]]*[ZTX]' "/proc/$mervak/status"; then
    echo "FAIL: Mervak is not running any more ($1)"; tail -20 "$work/mervak.log"; exit 1
  fi
  if ! xdotool search --name '^Mervak - ' >/dev/null 2>&1; then
    echo "FAIL: Mervak's window is gone ($1)"; exit 1
  fi
}
mib() { awk -v k="$1" 'BEGIN {printf "%.1f", k / 1024}'; }
rss_kib() { awk '/^VmRSS:/ {print $2}' "/proc/$mervak/status"; }
cpu_ticks() { sed 's/.*) //' "/proc/$mervak/stat" | awk '{print $12 + $13}'; }
shot() { # $1: file name; the main window is raised first so its status line shows
  xdotool search --name '^Mervak - ' windowactivate 2>/dev/null || true
  sleep 0.5
  import -window root "$shots/$1.png" 2>/dev/null || echo "(no screenshot $1)"
}
sim() { printf '%s\n' "$@" >&"${SIM[1]}"; }
press() { sim "press $(centre $(($1 % 3))) $(centre $(($1 / 3)))" lift; }

xterm -T "$title" -geometry 60x12+700+40 -e sh -c "stty raw -echo; exec cat > '$received'" &
terminal=$!
# The terminal must be there, and raw, before Mervak looks for it.
for _ in $(seq 150); do [ -e "$received" ] && break; sleep 0.1; done
coproc SIM { exec "$bin/mervak-tablet-sim" --seed 7; }
simulator=$SIM_PID
read -r port <&"${SIM[0]}"
printf '[Mervak]\r\nModel=EASY\r\nPort=%s\r\n' "$port" >"$work/home/MERVAK.INI"
"$bin/mervak" --home "$work/home" "$work/robust.mvw" >"$work/mervak.log" 2>&1 &
mervak=$!

# Set-up check: a plain press reaches the terminal, else nothing below means anything.
# Presses made before Mervak has started the tablet are lost, so press again now and then.
for attempt in $(seq 300); do
  ((attempt % 30 == 1)) && press 0
  grep -q a "$received" 2>/dev/null && break
  sleep 0.1
done
if ! grep -q a "$received" 2>/dev/null; then
  echo "FAIL: set-up: the first press never reached the terminal"
  shot 99-set-up-failed
  alive "set-up"
  tail -20 "$work/mervak.log"; exit 1
fi
alive "start"
shot 00-started

echo "Step 1: malformed ActionTexts"
for i in $(seq 2 $((${#texts[@]} - 1))); do
  press "$i"
  sleep 1.5
  alive "after pressing ${names[i]}"
  shot "$(printf '%02d' "$i")-${names[i]}"
done

echo "Step 2: $seconds s of random bytes mixed with presses"
first_span=$((seconds / 2 < 60 ? seconds / 2 : 60))
first_max=0 last_max=0 samples=""
typed_before=$(stat -c %s "$received")
start=$SECONDS next_sample=0 presses=0
while ((SECONDS - start < seconds)); do
  elapsed=$((SECONDS - start))
  # At 9600 baud the burst takes about as many milliseconds as it has bytes.
  sim "garbage $((RANDOM % 600 + 100))"
  press $((presses++ % 2))
  if ((elapsed >= next_sample)); then
    rss=$(rss_kib)
    samples+=" ${elapsed}s:$(mib "$rss")"
    ((elapsed < first_span && rss > first_max)) && first_max=$rss
    ((elapsed >= seconds - first_span && rss > last_max)) && last_max=$rss
    next_sample=$((next_sample + 5))
  fi
  alive "${elapsed} s into the random bytes"
  sleep 1
done
echo "  resident memory (MiB) at:$samples"
echo "  terminal received $(($(stat -c %s "$received") - typed_before)) bytes meanwhile"
shot 20-after-random-bytes

echo "Step 3: the tablet killed while a press is held"
sim "hold 20 20 5000"
sleep 1
kill -9 "$simulator"
wait "$simulator" 2>/dev/null || true
simulator=""
sleep 2
alive "after the tablet was killed"
ticks=$(cpu_ticks)
sleep 3
echo "  CPU in the 3 s after: $((($(cpu_ticks) - ticks) * 1000 / $(getconf CLK_TCK))) ms"
alive "3 s after the tablet was killed"
shot 30-tablet-killed
echo "  Mervak said on stderr: $(grep -v '^$' "$work/mervak.log" | sort | uniq -c | sort -rn | head -5)"
echo "  screenshots: $shots"

growth=$((last_max - first_max))
echo "  resident memory: first minute max $(mib "$first_max") MiB, last minute max $(mib "$last_max") MiB"
if ((growth > max_growth_kib)); then
  echo "FAIL: resident memory grew by $(mib "$growth") MiB (more than $(mib "$max_growth_kib") MiB)"
  exit 1
fi
echo "PASS: Mervak kept running through malformed ActionTexts, random bytes and a vanished tablet"
