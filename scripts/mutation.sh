#!/usr/bin/env bash
# Mutation testing: for each mutant of tools/mutation/mutants.txt, changes the
# source, rebuilds build/mutation incrementally, runs the tests and puts the file
# back. A mutant is killed when a test fails or times out (ctest's per-test
# TIMEOUT), survived when every test passes. Mutants that do not compile, or
# whose text is no longer in the file exactly once ("gone"), are listed but
# left out of the score. Tests that already fail on the unmutated tree are
# named and left out of every run.
#
# Only tests that need no real X display run: those labelled e2e are left out
# unless --with-e2e is given, so a mutant that only an e2e test would catch
# counts here as survived.
#
# Usage: scripts/mutation.sh [--with-e2e] [MUTANT-ID...]
# Per-mutant build and test logs go to build/mutation/logs/.
set -euo pipefail
cd "$(dirname "$0")/.."

build=build/mutation
logs=$build/logs
ctest_args=(--test-dir "$build" -j2 -LE e2e)
if [[ ${1:-} == --with-e2e ]]; then
  ctest_args=(--test-dir "$build" -j2)
  shift
fi
wanted=" $* "

ids=() files=() originals=() replacements=()
while IFS= read -r line; do
  case $line in
  "@ "*)
    read -r id file <<<"${line#@ }"
    ids+=("$id")
    files+=("$file")
    ;;
  "- "*) originals+=("${line#- }") ;;
  "+"*)
    replacement=${line#+}
    replacements+=("${replacement# }")
    ;;
  esac
done <tools/mutation/mutants.txt
if ((${#originals[@]} != ${#ids[@]} || ${#replacements[@]} != ${#ids[@]})); then
  echo "tools/mutation/mutants.txt: each mutant needs one '-' and one '+' line" >&2
  exit 2
fi

backup=$(mktemp)
mutated=
restore() {
  if [[ -n $mutated ]]; then
    cp "$backup" "$mutated"
    mutated=
  fi
}
trap 'restore; rm -f "$backup"' EXIT
trap 'exit 130' INT TERM
tree_before=$(git diff | sha1sum)

# Replaces the text, which must occur exactly once; fails when it does not.
apply() {
  local file=$1 original=$2 replacement=$3 content
  [[ -f $file ]] || return 1
  content=$(<"$file")
  [[ $content == *"$original"* && ${content#*"$original"} != *"$original"* ]] || return 1
  cp "$file" "$backup"
  mutated=$file
  printf '%s\n' "${content/"$original"/"$replacement"}" >"$file"
}

build_and_test() {
  local log=$1
  cmake --build "$build" -j2 >"$log.build" 2>&1 || return 2
  ctest "${ctest_args[@]}" --stop-on-failure >"$log.test" 2>&1 || return 1
}

# Tests that fail without any mutant say nothing about one: they are left out.
leave_out_failing_tests() {
  local failed=$build/Testing/Temporary/LastTestsFailed.log names
  rm -f "$failed"
  ctest "${ctest_args[@]}" >"$logs/unmutated.test" 2>&1 && return
  [[ -s $failed ]] || return 1
  echo "left out, failing without any mutant: $(cut -d: -f2- "$failed" | paste -sd' ')"
  names=$(cut -d: -f2- "$failed" | sed 's/[.]/\\./g' | paste -sd'|')
  ctest_args+=(-E "^($names)\$")
}

first_failure() {
  grep -A1 'The following tests FAILED' "$1" | sed -n '2s/^[[:space:]]*[0-9]* - //p' || true
}

if [[ ! -f $build/build.ninja ]]; then
  cmake --preset release -B "$build" -DCMAKE_CXX_COMPILER_LAUNCHER=ccache \
    -DMERVAK_BENCHMARKS=OFF >/dev/null
fi
mkdir -p "$logs"
start=$SECONDS
if ! cmake --build "$build" -j2 >"$logs/unmutated.build" 2>&1 || ! leave_out_failing_tests; then
  echo "The unmutated tree does not build or its tests do not run; see $logs/unmutated.*" >&2
  exit 1
fi
echo "unmutated tree built and tested in $((SECONDS - start)) s"

killed=0 survived=0 broken=0 gone=0
for i in "${!ids[@]}"; do
  id=${ids[i]}
  [[ $wanted == "  " || $wanted == *" $id "* ]] || continue
  start=$SECONDS
  detail=
  if ! apply "${files[i]}" "${originals[i]}" "${replacements[i]}"; then
    outcome=gone
    gone=$((gone + 1))
  else
    status=0
    build_and_test "$logs/$id" || status=$?
    restore
    case $status in
    0)
      outcome=survived
      survived=$((survived + 1))
      ;;
    1)
      outcome=killed
      killed=$((killed + 1))
      detail=$(first_failure "$logs/$id.test")
      ;;
    *)
      outcome=compile-error
      broken=$((broken + 1))
      ;;
    esac
  fi
  printf '%-26s %-13s %4d s  %s\n' "$id" "$outcome" $((SECONDS - start)) "$detail"
done

restore
if [[ $(git diff | sha1sum) != "$tree_before" ]]; then
  echo "The source tree differs from before the run: check git diff" >&2
  exit 1
fi
scored=$((killed + survived))
echo "compile errors: $broken, gone: $gone"
echo "killed $killed of $scored ($((scored ? (100 * killed + scored / 2) / scored : 0)) %)"
