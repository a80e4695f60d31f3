#!/usr/bin/env bash
# Builds the libFuzzer targets (the fuzz preset: clang, AddressSanitizer and
# UndefinedBehaviorSanitizer) and runs each for SECONDS from its seeds in tests/.
# An input that crashes or breaks a property is kept in build/fuzz/crashes/ and
# the run fails; keep it in the target's seeds once the fault is fixed.
#   scripts/fuzz.sh [SECONDS] [TARGET...]     e.g. scripts/fuzz.sh 600 fuzz_evemu
set -uo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-5}
shift $(($# > 0 ? 1 : 0))

# The seeds of each target: files and folders under the source tree.
declare -A seeds=(
  [fuzz_mvw]="tests/data/template/fuzz tests/data/template/golden-v1.mvw tests/data/template/golden-v2.mvw tests/data/template/golden-saveas.mvw tests/data/template/golden-utf8.mvw"
  [fuzz_mvd]="tests/data/template/golden.mvd"
  [fuzz_mvp]="tests/data/template/golden.mvp"
  [fuzz_action]="tests/data/fuzz/action"
  [fuzz_settings]="tests/data/fuzz/settings"
  [fuzz_macros]="tests/data/fuzz/macros data/MACROS.INI"
  [fuzz_serial]="tests/data/fuzz/serial"
  [fuzz_evemu]="tests/data/fuzz/evemu tests/data/evdev/touchscreen.evemu"
  [fuzz_obf]="tests/data/openboard/fuzz tests/data/openboard/grid-with-gaps.obf"
)
targets=("$@")
[ ${#targets[@]} -gt 0 ] || mapfile -t targets < <(printf '%s\n' "${!seeds[@]}" | sort)

cmake --preset fuzz >/dev/null || exit 1
cmake --build --preset fuzz -j 2 --target "${targets[@]}" || exit 1

crashes=build/fuzz/crashes
mkdir -p "$crashes"
status=0
for target in "${targets[@]}"; do
  corpus=$(mktemp -d)
  for seed in ${seeds[$target]}; do
    if [ -d "$seed" ]; then cp "$seed"/* "$corpus"/; else cp "$seed" "$corpus"/; fi
  done
  # One process, no leak report at exit: a Qt application object lives to the end.
  if build/fuzz/bin/"$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
    -print_final_stats=0 -artifact_prefix="$crashes/$target-" "$corpus" \
    >"build/fuzz/$target.log" 2>&1; then
    echo "$target: $(grep -o 'stat::number_of_executed_units: [0-9]*\|#[0-9]*.*DONE.*' \
      "build/fuzz/$target.log" | tail -n 1)"
  else
    echo "$target: FAILED (build/fuzz/$target.log)"
    tail -n 30 "build/fuzz/$target.log"
    status=1
  fi
  rm -rf "$corpus"
done
exit "$status"
