#!/usr/bin/env bash
# Regenerates the pictures in doc/images from the Python examples
# (examples/python: the Mollier chart and IFC-67's difference from IF97,
# the flue gas's cooling curve, the transport properties).
#   tools/charts.sh                                   builds the Python package in build/ and uses it
#   ONDREL_PYTHONPATH=/other/build/python tools/charts.sh   uses the package there, builds nothing
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build="$root/build"
if [ -n "${ONDREL_PYTHONPATH:-}" ]; then
  pythonpath="$ONDREL_PYTHONPATH"
else
  "$root/tools/install-deps.sh"
  [ -f "$build/CMakeCache.txt" ] || cmake -S "$root" -B "$build" >/dev/null
  cmake --build "$build" -j "$(nproc 2>/dev/null || echo 2)" --target ondrel_python
  pythonpath="$build/python"
fi
out="$root/doc/images"
mkdir -p "$out"
for example in mollier_chart flue_gas_cooling transport; do
  PYTHONPATH="$pythonpath" /usr/bin/python3 "$root/examples/python/$example.py" --out "$out"
done
