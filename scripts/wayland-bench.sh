#!/usr/bin/env bash
# Typing speed on Wayland, Mervak beside wtype: a private headless sway (run as an
# unprivileged user when called as root), a foot terminal writing what it receives
# to a file, then mervak-wayland-bench types accented text with each.
#   scripts/wayland-bench.sh [BUILD_DIR] [CHARS] [RUNS]
# Prints one line per tool: median characters per second and characters lost.
source_dir="$(cd "$(dirname "$0")/.." && pwd)"
build="${1:-$source_dir/build/release}"
chars="${2:-2000}"
runs="${3:-5}"
bench="$build/bin/mervak-wayland-bench"
[ -x "$bench" ] || { echo "build mervak-wayland-bench first ($bench)" >&2; exit 1; }
source "$source_dir/tests/e2e/wayland/sway-session.sh"
start_sway
start_foot mervak-bench typed.txt
LC_ALL=C.UTF-8 "$bench" --target mervak-bench --file "$out/typed.txt" --chars "$chars" --runs "$runs"
