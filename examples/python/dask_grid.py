#!/usr/bin/env python3
"""A large grid of states evaluated with dask, on this machine or on a cluster.

The grid is the dry flue gas (N2, CO2, O2, AR in the proportions of the
flue gas of the other examples, without its water) from 1 to 5 bar and over
the enthalpies of 300 K to 1500 K; each state's temperature is solved from
(P, h). dask.array's map_blocks hands each block of grid indices to a worker,
which makes its inputs from the indices and calls the package with threads=1:
the workers give the parallelism. The script measures states per second of
one process calling the package on the whole grid (threads=1 and threads=0,
all cores), then of dask, and checks that dask's result equals the direct
call bit for bit (exit status 1 if not).

    PYTHONPATH=<build>/python python3 dask_grid.py [--points N] [--workers W] [--chunk N]
    PYTHONPATH=<build>/python python3 dask_grid.py --scheduler tcp://host:8786

Without --scheduler a LocalCluster of W worker processes of one thread each
is started here; with it, the client connects to that scheduler, whose
workers must import ondrel themselves (PYTHONPATH set where they start).
"""
import argparse
import functools
import importlib
import os
import sys
import time

import dask.array as da
import numpy as np
from dask.distributed import Client, LocalCluster

import ondrel

FLUE_GAS = {"N2": 0.71, "CO2": 0.13, "O2": 0.035, "AR": 0.005}
DRY_FLUE_GAS = tuple((name, x / sum(FLUE_GAS.values())) for name, x in FLUE_GAS.items())
P_LO, P_HI = 1.0e5, 5.0e5       # Pa
T_LO, T_HI = 300.0, 1500.0      # K, the range the enthalpies are taken from
N_PRESSURES = 1000              # grid rows; each row is one pressure


@functools.lru_cache(maxsize=None)
def mixture(composition):
    """The Mixture of a composition (a tuple of (name, fraction)), made once
    per process: a Mixture does not travel between processes, the
    composition does."""
    return ondrel.Mixture(dict(composition))


def temperatures(index, n, h_lo, h_hi, threads):
    """T at the grid points of the flat indices `index` of an n-point grid.
    Every point's inputs come from its index alone, so a block of indices
    gives the same inputs, bit for bit, as the whole grid does."""
    n_h = -(-n // N_PRESSURES)
    row, col = np.divmod(index, n_h)
    p = P_LO + (P_HI - P_LO) * (row / (N_PRESSURES - 1))
    h = h_lo + (h_hi - h_lo) * (col / (n_h - 1))
    return mixture(DRY_FLUE_GAS).props("Ph", p, h, "T", threads=threads)


def warm_up():
    mixture(DRY_FLUE_GAS)


def timed(what, n, run):
    start = time.perf_counter()
    result = run()
    seconds = time.perf_counter() - start
    print(f"{what:<56} {seconds:8.2f} s  {n / seconds / 1e6:7.2f} million states/s", flush=True)
    return result


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("--points", type=int, default=10_000_000, help="states in the grid (default 10^7)")
    parser.add_argument("--workers", type=int, default=os.cpu_count(),
                        help="worker processes of the local cluster (default: the cores)")
    parser.add_argument("--scheduler", help="address of a running dask scheduler, e.g. tcp://host:8786")
    parser.add_argument("--chunk", type=int, default=500_000, help="states per dask block (default 500000)")
    args = parser.parse_args()
    n = args.points
    if n < 2 * N_PRESSURES:
        parser.error(f"--points must be at least {2 * N_PRESSURES}")

    gas = mixture(DRY_FLUE_GAS)
    h_lo, h_hi = gas.props("PT", P_LO, np.array([T_LO, T_HI]), "h")
    print(f"{n} states of the dry flue gas, T from (P, h): P {P_LO / 1e5:g} to {P_HI / 1e5:g} bar, "
          f"h of {T_LO:g} K to {T_HI:g} K; {os.cpu_count()} cores, load average "
          + " ".join(f"{x:.2f}" for x in os.getloadavg()))

    index = np.arange(n)
    one_thread = timed("direct, threads=1", n, lambda: temperatures(index, n, h_lo, h_hi, threads=1))
    direct = timed(f"direct, threads=0 ({os.cpu_count()} cores)", n,
                   lambda: temperatures(index, n, h_lo, h_hi, threads=0))

    cluster = None
    if args.scheduler:
        where = f"scheduler {args.scheduler}"
    else:
        cluster = LocalCluster(n_workers=args.workers, threads_per_worker=1, processes=True,
                               dashboard_address=None)
        where = f"local cluster, {args.workers} processes x 1 thread"
    with Client(args.scheduler or cluster) as client:
        workers = len(client.scheduler_info()["workers"])
        # The workers get this file as a module of their own and import it:
        # a task then names its function by module and name, and each worker
        # process keeps that module's mixture cache. (A function of __main__
        # would travel by value with the tasks, and its lru_cache, an object
        # of __main__, could not be found on a worker started by `dask worker`.)
        client.upload_file(__file__)
        module = importlib.import_module(os.path.splitext(os.path.basename(__file__))[0])
        client.run(module.warm_up)  # every worker imports the package before the clock starts
        grid = da.arange(n, chunks=args.chunk)
        result = grid.map_blocks(module.temperatures, n, h_lo, h_hi, threads=1, dtype=np.float64)
        by_dask = timed(f"dask, {where} ({workers} workers)", n, result.compute)
    if cluster is not None:
        cluster.close()
    failed = int(np.count_nonzero(np.isnan(direct)))
    if failed:
        print(f"{failed} states failed (NaN) in the direct call")
    if not np.array_equal(one_thread, direct, equal_nan=True):
        print("the direct call's result differs between threads=1 and threads=0")
        return 1
    if not np.array_equal(by_dask, direct, equal_nan=True):
        differ = int(np.count_nonzero(~((by_dask == direct) | (np.isnan(by_dask) & np.isnan(direct)))))
        print(f"dask's result differs from the direct call at {differ} states")
        return 1
    print("dask's result equals the direct call's (threads=1 and threads=0) bit for bit")
    return 0


if __name__ == "__main__":
    sys.exit(main())
