#!/usr/bin/env bash
# Mervak's figures in one table, beside those of the tools users know, all measured
# in the same run on this machine: typing plain and accented text into a real xterm
# against xdotool (whole processes, characters lost), press-to-keystroke latency on a
# quiet machine and with both cores busy, opening a 32 767-Area Template, the hit
# test, the tracker's time per frame, a speech press to first audio and start-up,
# with the machine's cores and load. docs/performance.md tells how to read it.
#   scripts/bench.sh [--quick] [BIN_DIR]      (BIN_DIR: build/release/bin)
# --quick measures a little of everything in seconds (the test suite's smoke run).
# Exit status 1 when a figure could not be measured.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
quick_flag=()
if [ "${1:-}" = --quick ]; then
  quick_flag=(--quick)
  shift
fi
bin=$(cd "${1:-$here/../build/release/bin}" && pwd)
if [ ! -x "$bin/mervak" ]; then
  echo "bench.sh: no mervak in $bin; give the build's bin folder (build/release/bin)" >&2
  exit 2
fi
export LC_ALL=C.UTF-8
if [ ${#quick_flag[@]} = 1 ]; then
  chars=300 presses=30 idle=1 min_time=0.01 frames=20 speeches=3 startups=1 wayland_runs=1
else
  chars=5000 presses=500 idle=5 min_time=0.5 frames=300 speeches=50 startups=5 wayland_runs=3
fi
work=$(mktemp -d)
busy=()
terminal=
stop_busy() {
  for pid in "${busy[@]}"; do kill "$pid" 2>/dev/null || true; done
  busy=()
}
trap 'stop_busy; [ -z "$terminal" ] || kill "$terminal" 2>/dev/null; rm -rf "$work"' EXIT

# Pads TEXT with spaces to WIDTH characters.
pad() {
  local text=$1
  while [ ${#text} -lt "$2" ]; do text+=' '; done
  printf '%s' "$text"
}
# A row of the table: what, Mervak's figure, the reference tool's, the budget.
row() { printf '%s | %s | %s | %s\n' "$(pad "$1" 36)" "$(pad "$2" 26)" "$(pad "$3" 26)" "$4"; }
# FIGURE, or a dash saying which program gave none.
figure() { if [ -n "$1" ]; then echo "$1"; else echo "— (failed: $2)"; fi; }
# Runs the function PART of this script on a private Xvfb with openbox of its own:
# xdotool's keymap changes keep the window manager busy long after xdotool ends.
on_display() {
  MERVAK_BENCH_PART=$1 "$here/with-display.sh" "$0" "${quick_flag[@]}" "$bin" || true
}

# One code point per line, in hexadecimal.
code_points() { iconv -f UTF-8 -t UTF-32LE "$1" | od -An -v -tx4 -w4; }

# Characters of file EXPECTED missing from file RECEIVED, however reordered.
lost_characters() {
  awk 'NR == FNR { want[$1]++; next } { got[$1]++ }
       END { for (c in want) if (want[c] > got[c]) lost += want[c] - got[c]; print lost + 0 }' \
    <(code_points "$1") <(code_points "$2")
}

# Types the text of file TEXT with COMMAND... (the text as its last argument) into
# the terminal, whole process: from starting COMMAND until it has ended and the
# terminal holds the whole text, or nothing more came for a second. Prints
# "characters-per-second characters-lost".
type_with() {
  local text=$1 size start now pid grown=0 last=0 ended=0
  shift
  : >"$work/received.txt"
  size=$(wc -c <"$text")
  xdotool windowactivate --sync "$(xdotool search --name '^Bench target$' | head -1)" 2>/dev/null
  start=$(date +%s%N)
  "$@" "$(cat "$text")" >/dev/null 2>>"$work/typing.log" &
  pid=$!
  while :; do
    now=$(date +%s%N)
    if [ "$(stat -c %s "$work/received.txt")" != "$grown" ]; then
      grown=$(stat -c %s "$work/received.txt")
      last=$now
    fi
    if [ "$ended" = 0 ] && ! kill -0 "$pid" 2>/dev/null; then ended=$now; fi
    if [ "$ended" != 0 ]; then
      [ "$grown" -ge "$size" ] && break
      [ $((now - last)) -gt 1000000000 ] && [ $((now - ended)) -gt 1000000000 ] && break
    fi
    sleep 0.005
  done
  wait "$pid" || true
  [ "$last" -gt "$ended" ] || last=$ended
  echo "$(($(code_points "$text" | wc -l) * 1000000000 / (last - start)))" \
    "$(lost_characters "$text" "$work/received.txt")"
}

# COUNT characters of TEXT repeated.
repeat_to() {
  local s=""
  while [ ${#s} -lt "$2" ]; do s+=$1; done
  printf '%s' "${s:0:$2}"
}

# Starts the xterm that receives the typing; a second try when the window manager
# has not shown it within ten seconds (it sometimes misses a window mapped while it
# starts).
start_terminal() {
  local try
  for try in 1 2; do
    xterm -T "Bench target" -geometry 80x24+0+0 \
      -e sh -c "stty raw -echo; exec cat >>'$work/received.txt'" 2>/dev/null &
    terminal=$!
    timeout 10 xdotool search --sync --onlyvisible --name '^Bench target$' >/dev/null && return
    kill "$terminal"
    terminal=
  done
  return 1
}

typing() {
  start_terminal || return 0
  repeat_to 'The quick brown fox jumps over the lazy dog 0123456789. ' "$chars" >"$work/plain.txt"
  repeat_to 'àéèíïòóúüçñ·€ÀÉÈÍÏÒÓÚÜÇÑ¿¡ŀ' "$chars" >"$work/accented.txt"
  local kind ours ours_lost theirs theirs_lost budget
  for kind in plain accented; do
    read -r ours ours_lost <<<"$(type_with "$work/$kind.txt" \
      "$bin/mervak-cli" action --target "Bench target" --)"
    read -r theirs theirs_lost <<<"$(type_with "$work/$kind.txt" xdotool type --delay 0)"
    budget="≥ 5× xdotool"
    [ "$kind" = accented ] && budget="≥ 3 000/s"
    row "typing $chars $kind, characters/s" "$ours" "$theirs (xdotool)" "$budget"
    row "  characters lost" "$ours_lost" "$theirs_lost (xdotool)" "0"
  done
}

# Mervak against wtype on a private headless sway with foot (scripts/wayland-bench.sh):
# "median N chars/s ..., lost L" for each.
wayland_typing() {
  "$here/wayland-bench.sh" "$bin/.." "$chars" "$wayland_runs" >"$work/wayland.txt" 2>&1 || true
  local ours theirs
  ours=$(awk '$1 == "mervak" { print $(NF - 7) " (" $NF " lost)" }' "$work/wayland.txt")
  theirs=$(awk '$1 == "wtype" { print $(NF - 7) " (" $NF " lost)" }' "$work/wayland.txt")
  row "typing on Wayland, characters/s" "$(figure "$ours" mervak-wayland-bench)" \
    "$(figure "$theirs" wtype) (wtype)" "≥ 2 000/s"
}

# Press to keystroke through the running program: "p50 ..., p99 ... ms".
press() {
  "$bin/mervak-press-bench" --presses "$presses" --idle-seconds "$idle" >"$work/press.txt" 2>&1 || true
  figure "$(awk '/^  p50/ { print "p50 " $2 ", p99 " $8 " ms"; exit }' "$work/press.txt")" \
    mervak-press-bench
}

latency() {
  row "press to keystroke, quiet" "$(press)" "" "p50 ≤ 0.6, p99 ≤ 1 ms"
  for _ in 1 2; do
    (while :; do :; done) &
    busy+=($!)
  done
  row "press to keystroke, both cores busy" "$(press)" "" ""
  stop_busy
}

templates() {
  "$bin/template_bench" --benchmark_filter='^(OpenFile|FindAreaMiss)/32767$' \
    --benchmark_min_time="$min_time" --benchmark_format=csv >"$work/template.csv" 2>/dev/null || true
  # Real time of benchmark NAME, in milliseconds times FACTOR.
  real_time() {
    awk -F, -v name="\"$1/32767\"" -v factor="$2" '$1 == name { printf "%.3f", $3 * factor }' \
      "$work/template.csv"
  }
  local opened hit
  opened=$(real_time OpenFile 1)
  hit=$(real_time FindAreaMiss 1000)
  row "open a 32 767-Area Template" "$(figure "${opened:+$opened ms}" template_bench)" "" "≤ 50 ms"
  row "hit test over 32 767 Areas" "$(figure "${hit:+$hit µs}" template_bench)" "" "≤ 50 µs"
}

tracker() {
  "$bin/mervak-tracker-bench" --frames "$frames" >"$work/tracker.txt" 2>&1 || true
  local tracked inrange
  tracked=$(awk '/^tracker alone/ { print "p50 " $(NF - 4) ", p99 " $(NF - 1) " ms" }' "$work/tracker.txt")
  inrange=$(awk '/^plain cv::inRange/ { print "p50 " $(NF - 4) " ms (cv::inRange)" }' "$work/tracker.txt")
  row "tracker, one 640x480 frame" "$(figure "$tracked" mervak-tracker-bench)" "$inrange" "≤ 1.5 ms"
}

speech() {
  "$bin/mervak-audio-bench" --presses "$speeches" >"$work/speech.txt" 2>&1 || true
  local heard
  heard=$(awk '/^press to first audio/ { for (i = 1; i <= NF; i++) if ($i ~ /^p(50|99)=/) s = s (s ? ", " : "") $i; print s " ms" }' \
    "$work/speech.txt" | sed 's/=/ /g')
  row "speech press to first audio" "$(figure "$heard" mervak-audio-bench)" "" "≤ 50 ms"
}

startup() {
  "$here/bench-startup.sh" "$bin" "$startups" >"$work/startup.txt" 2>&1 || true
  local started
  started=$(awk '/start-up to shown window/ { print $5 }' "$work/startup.txt" | sort -n |
    awk '{ v[NR] = $1 } END { if (NR) print v[int((NR + 1) / 2)] " ms (median of " NR ")" }')
  row "start-up to the main window" "$(figure "$started" bench-startup.sh)" "" "≤ 0.5 s"
}

if [ -n "${MERVAK_BENCH_PART:-}" ]; then
  "$MERVAK_BENCH_PART"
  exit 0
fi
load() { cut -d' ' -f1-3 /proc/loadavg; }
load_start=$(load)
rows=$(
  on_display typing
  wayland_typing
  on_display latency
  templates
  tracker
  speech
  on_display startup
)
printf 'Mervak benchmarks, %s, commit %s%s\n' "$(date -u '+%Y-%m-%d %H:%M UTC')" \
  "$(git -C "$here" rev-parse --short HEAD 2>/dev/null || echo '?')" \
  "${quick_flag:+, quick run: rough figures}"
printf 'machine: %s cores (%s); load average (1, 5, 15 min) %s at the start, %s at the end\n' \
  "$(nproc)" "$(awk -F': ' '/model name/ { print $2; exit }' /proc/cpuinfo)" "$load_start" "$(load)"
row "what" "Mervak" "tool users know" "budget"
printf '%s\n' "$rows"
[ "$(grep -c ' | ' <<<"$rows")" = 12 ] && ! grep -q "(failed" <<<"$rows"
