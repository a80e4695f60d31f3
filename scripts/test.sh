#!/usr/bin/env bash
# Sets up, checks formatting and clang-tidy, then builds and runs the whole test suite
# on what scripts/run.sh ships (the release preset: optimised, warnings as errors) and
# again under AddressSanitizer and UndefinedBehaviorSanitizer (the asan preset), then
# runs every fuzz target for a few seconds.
#   scripts/test.sh [ctest arguments...]    e.g. scripts/test.sh -R AreaGeometry
set -uo pipefail
cd "$(dirname "$0")/.."
./scripts/setup.sh || exit 1

summary=()
status=0
passed=0
failed=0

# step NAME COMMAND...: runs one step, times it and notes how it ended.
step() {
  local name=$1 start=$SECONDS outcome=ok
  shift
  echo "==== $name"
  "$@" || outcome=FAILED
  [ "$outcome" = ok ] || status=1
  summary+=("$(printf '%-22s %-6s %5ds' "$name" "$outcome" $((SECONDS - start)))")
  [ "$outcome" = ok ]
}

# run_tests PRESET [ctest arguments...]: runs ctest and adds its counts to the totals.
run_tests() {
  local preset=$1
  shift
  local log="build/$preset/ctest.log"
  ctest --preset "$preset" --no-tests=error "$@" 2>&1 | tee "$log"
  local rc=${PIPESTATUS[0]}
  if [[ $(tail -n 40 "$log") =~ ([0-9]+)\ tests\ failed\ out\ of\ ([0-9]+) ]]; then
    failed=$((failed + BASH_REMATCH[1]))
    passed=$((passed + BASH_REMATCH[2] - BASH_REMATCH[1]))
  fi
  return "$rc"
}

configure() { cmake --preset release && cmake --preset asan; }

step "format" ./scripts/check-format.sh
step "layers" ./scripts/check-layers.sh
if step "configure" configure; then
  step "build release" cmake --build --preset release -j 2 &&
    step "tests release" run_tests release "$@"
  step "clang-tidy" ./scripts/check-tidy.sh build/release
  # The e2e tests labelled no-asan cannot run under the sanitizers (see their CMakeLists).
  step "build asan" cmake --build --preset asan -j 2 &&
    step "tests asan" run_tests asan -LE no-asan "$@"
fi
# Every file and device reader under libFuzzer, a few seconds each (scripts/fuzz.sh).
step "fuzz" ./scripts/fuzz.sh 5

echo
echo "==== summary (release = what scripts/run.sh ships; asan = ASan + UBSan build)"
printf '%s\n' "${summary[@]}"
echo "whole run: ${SECONDS}s"
echo "tests: $passed passed, $failed failed"
exit "$status"
