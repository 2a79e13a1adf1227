#!/usr/bin/env python3
"""The Python package against the C++ array call it sits on.

Runs the C++ benchmark batch_bench (the baseline, in the same run) and times
the same calls from Python: 10^6 states of the dry flue gas, "PT" to h and
"Ph" to T, on one thread and on all cores; then the cost of a scalar call
from Python beside the C++ single call.

usage: PYTHONPATH=<build>/python python3 bench/python_bench.py <build>/bench/batch_bench
"""

import json
import os
import subprocess
import sys
import time

import numpy as np

import ondrel

POINTS = 1_000_000
GAS = {"N2": 0.71, "CO2": 0.13, "H2O": 0.12, "O2": 0.035, "AR": 0.005}


def best(call, repeat):
    """The fastest of `repeat` runs, seconds."""
    times = []
    for _ in range(repeat):
        start = time.perf_counter()
        call()
        times.append(time.perf_counter() - start)
    return min(times)


def baseline(program):
    """Seconds per call of each C++ benchmark, by name (real time; the minimum of the repetitions)."""
    out = subprocess.run([program, "--benchmark_format=json", "--benchmark_repetitions=5",
                          "--benchmark_report_aggregates_only=false"],
                         check=True, capture_output=True, text=True).stdout
    scale = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}
    result = {}
    for b in json.loads(out)["benchmarks"]:
        if b.get("run_type") != "iteration":
            continue
        t = b["real_time"] * scale[b["time_unit"]]
        result[b["run_name"]] = min(t, result.get(b["run_name"], t))
    return result


def main(program):
    gas = ondrel.Mixture(GAS)
    p = np.full(POINTS, 1.0e5)
    T = 600.0 + 1.0e-3 * np.arange(POINTS)
    h = gas.props("PT", p, T, "h", raise_on_error=True)
    cxx = baseline(program)
    cores = os.cpu_count()
    print(f"{POINTS} states of the dry flue gas; load {os.getloadavg()[0]:.2f} on {cores} cores")
    print(f"{'call':<22}{'threads':>8}{'C++ ns/point':>14}{'Python ns/point':>17}{'ratio':>8}")
    for pair, second, name, bench in (("PT", T, "h", "BM_Batch_PT_h"), ("Ph", h, "T", "BM_Batch_Ph_T")):
        for threads in (1, 0):
            py = best(lambda: gas.props(pair, p, second, name, threads=threads), 5) / POINTS
            c = cxx[f"{bench}/{threads}/real_time"] / POINTS
            label = "all" if threads == 0 else str(threads)
            print(f"{pair + ' -> ' + name:<22}{label:>8}{c * 1e9:>14.1f}{py * 1e9:>17.1f}{py / c:>8.2f}")
    n = 20000
    Ts = [float(x) for x in T[:n]]
    scalar = best(lambda: [gas.props("PT", 1.0e5, t, "h") for t in Ts], 3) / n
    single = best(lambda: gas.props("PT", p[:1], T[:1], "h"), 2000)
    print(f"scalar call from Python, PT -> h: {scalar * 1e6:.2f} us a call "
          f"(an array call of one point: {single * 1e6:.2f} us)")


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    main(sys.argv[1])
