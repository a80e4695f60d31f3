#!/usr/bin/env bash
# Runs clang-tidy (checks in .clang-tidy) over every C++ source file of the tree, with
# the compile commands of a configured build: scripts/check-tidy.sh [BUILD_DIR]
# (build/release by default; configured here when it has no compile_commands.json).
#
# Verdicts are kept as the compiler cache keeps objects: a file whose preprocessed
# text, compiler options, checks and clang-tidy version are those of a clean run
# before is clean now, and only the others are checked (the whole tree takes half an
# hour of two cores).
# MERVAK_TIDY_CACHE names the folder (~/.cache/mervak/tidy); "off" checks every file.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/release}
if [ ! -f "$build/compile_commands.json" ]; then
  cmake --preset release >/dev/null
  build=build/release
fi
cache=${MERVAK_TIDY_CACHE:-$HOME/.cache/mervak/tidy}

# Only the tree's own files: moc output in the build folder is not ours to fix.
mapfile -t files < <(jq -r '.[].file' "$build/compile_commands.json" |
  grep -E "^$PWD/(src|tools|tests)/" | sort -u)

# verdict_key FILE: what a clean verdict on FILE depends on, as one hash. The source
# folder is taken out of the text, so that every clone of the tree shares verdicts.
verdict_key() {
  local file=$1 command
  command=$(jq -r --arg f "$file" 'first(.[] | select(.file == $f)) | .command' \
    "$build/compile_commands.json")
  eval "set -- $command"
  local arguments=()
  while [ $# -gt 0 ]; do
    case $1 in
    -o) shift ;;
    -c | "$file") ;;
    *) arguments+=("$1") ;;
    esac
    shift
  done
  {
    clang-tidy --version
    cat .clang-tidy tests/.clang-tidy
    echo "$file" "${arguments[@]}"
    (cd "$build" && "${arguments[@]}" -E -P "$file") 2>&1
  } | sed "s|$PWD|@SOURCE@|g" | sha256sum | cut -d' ' -f1
}
export -f verdict_key
export build cache

if [ "$cache" = off ]; then
  pending=("${files[@]}")
else
  mkdir -p "$cache"
  # One "KEY FILE" line per file, two at a time.
  printf '%s\n' "${files[@]}" |
    xargs -P 2 -I{} bash -c 'echo "$(verdict_key "$1") $1"' _ {} >"$build/tidy-keys.txt"
  pending=()
  while read -r key file; do
    [ -e "$cache/$key" ] || pending+=("$file")
  done <"$build/tidy-keys.txt"
fi

if [ ${#pending[@]} -gt 0 ]; then
  pattern="^($(printf '%s\n' "${pending[@]}" | sed 's/[.+]/\\&/g' | paste -sd'|'))$"
  if ! run-clang-tidy -p "$build" -j 2 -quiet "$pattern" >"$build/clang-tidy.log" 2>&1; then
    sed 's/\x1b\[[0-9;]*m//g' "$build/clang-tidy.log" | grep -E "(warning|error): " | sort -u
    echo "clang-tidy: findings above (whole output: $build/clang-tidy.log)"
    exit 1
  fi
  if [ "$cache" != off ]; then
    while read -r key file; do
      [ -e "$cache/$key" ] || touch "$cache/$key"
    done <"$build/tidy-keys.txt"
  fi
fi
echo "clang-tidy: ${#files[@]} files, ${#pending[@]} checked now, no findings"
