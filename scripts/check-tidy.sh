#!/usr/bin/env bash
# Runs clang-tidy (checks in .clang-tidy) over every C++ source file of the tree, with
# the compile commands of a configured build: scripts/check-tidy.sh [BUILD_DIR]
# (build/release by default; configured here when it has no compile_commands.json).
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/release}
if [ ! -f "$build/compile_commands.json" ]; then
  cmake --preset release >/dev/null
  build=build/release
fi
# Only the tree's own files: moc output in the build folder is not ours to fix.
sources="^$PWD/(src|tools|tests)/"
count=$(grep -cE "\"file\": \"$PWD/(src|tools|tests)/" "$build/compile_commands.json" || true)
if ! run-clang-tidy -p "$build" -j 2 -quiet "$sources" >"$build/clang-tidy.log" 2>&1; then
  sed 's/\x1b\[[0-9;]*m//g' "$build/clang-tidy.log" | grep -E "(warning|error): " | sort -u
  echo "clang-tidy: findings above (whole output: $build/clang-tidy.log)"
  exit 1
fi
echo "clang-tidy: $count files, no findings"
