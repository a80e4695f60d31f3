#!/usr/bin/env bash
# Sets up, builds and starts Mervak. Without a display, runs the headless demo instead.
#   scripts/run.sh [mervak arguments...]
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/setup.sh
cmake --preset release >/dev/null
cmake --build --preset release --target mervak mervak-tablet-sim mervak-cli
if [ -n "${DISPLAY:-}" ] && xdpyinfo >/dev/null 2>&1; then
  exec build/release/bin/mervak "$@"
fi
echo "No display here: running the demonstration in a private X display."
exec scripts/demo.sh build/release
