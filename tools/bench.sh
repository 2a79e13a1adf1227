#!/usr/bin/env bash
# Builds the benchmarks (optimised) and runs them all.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/tools/install-deps.sh"
jobs=$(nproc 2>/dev/null || echo 2)
cmake -S "$root" -B "$root/build-bench" -DCMAKE_BUILD_TYPE=Release -DONDREL_BUILD_BENCH=ON \
  -DONDREL_BUILD_TESTS=OFF >/dev/null
cmake --build "$root/build-bench" -j "$jobs"
for b in "$root"/build-bench/bench/*_bench; do
  "$b" --benchmark_min_time=0.2 "$@"
done
# The Python package against its C++ baseline (batch_bench), when it was built.
if [ -d "$root/build-bench/python/ondrel" ]; then
  PYTHONPATH="$root/build-bench/python" /usr/bin/python3 -B "$root/bench/python_bench.py" \
    "$root/build-bench/bench/batch_bench"
fi
