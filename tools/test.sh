#!/usr/bin/env bash
# Builds the library and runs every test.
#   tools/test.sh             release build in build/
#   tools/test.sh --sanitize  address and undefined-behaviour sanitizers in build-asan/
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/tools/install-deps.sh"
build="$root/build"
opts=()
if [ "${1:-}" = "--sanitize" ]; then
  build="$root/build-asan"
  opts+=(-DONDREL_SANITIZE=ON)
fi
jobs=$(nproc 2>/dev/null || echo 2)
cmake -S "$root" -B "$build" "${opts[@]}" >/dev/null
cmake --build "$build" -j "$jobs"
ctest --test-dir "$build" -j "$jobs" --output-on-failure
