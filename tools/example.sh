#!/usr/bin/env bash
# Builds the library and runs the main example.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/tools/install-deps.sh"
jobs=$(nproc 2>/dev/null || echo 2)
cmake -S "$root" -B "$root/build" >/dev/null
cmake --build "$root/build" -j "$jobs" --target flue_gas_cooling
"$root/build/examples/flue_gas_cooling"
