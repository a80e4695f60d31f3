#!/usr/bin/env bash
# Sets up, builds with warnings as errors, checks formatting and runs the whole test suite.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/setup.sh
./scripts/check-format.sh
cmake --preset ci
cmake --build --preset ci
ctest --preset ci --no-tests=error "$@"
