#!/usr/bin/env bash
# Builds the library and runs every test.
#   tools/test.sh             release build in build/
#   tools/test.sh --sanitize  address and undefined-behaviour sanitizers in build-asan/
#   tools/test.sh --threads   the thread tests alone under the thread sanitizer in build-tsan/
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/tools/install-deps.sh"
build="$root/build"
opts=()
jobs=$(nproc 2>/dev/null || echo 2)
if [ "${1:-}" = "--sanitize" ]; then
  build="$root/build-asan"
  # One CTest test a program: under the sanitizers a process start costs more than a test.
  opts+=(-DONDREL_SANITIZE=ON -DONDREL_TESTS_PER_PROGRAM=ON)
elif [ "${1:-}" = "--threads" ]; then
  build="$root/build-tsan"
  cmake -S "$root" -B "$build" -DONDREL_TSAN=ON -DONDREL_BUILD_EXAMPLES=OFF >/dev/null
  cmake --build "$build" -j "$jobs" --target mixture_threads_test mixture_api_test if97_threads_test ifc67_threads_test
  ctest --test-dir "$build" -j "$jobs" --output-on-failure -R 'Threads|Batch'
  exit 0
fi
cmake -S "$root" -B "$build" "${opts[@]}" >/dev/null
cmake --build "$build" -j "$jobs"
ctest --test-dir "$build" -j "$jobs" --output-on-failure
