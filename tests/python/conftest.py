"""The library's C interface through ctypes: the values the Python package
must reproduce bit for bit, reached by a path that shares none of its code."""

import ctypes
import os

import numpy as np
import pytest

FLUE_GAS = {"N2": 0.71, "CO2": 0.13, "H2O(IF)": 0.12, "O2": 0.035, "AR": 0.005}
DRY_FLUE_GAS = {"N2": 0.74, "CO2": 0.12, "H2O": 0.09, "O2": 0.04, "AR": 0.01}


class If97State(ctypes.Structure):
    _fields_ = [(n, ctypes.c_double) for n in
                ("p", "T", "v", "rho", "h", "s", "u", "cp", "cv", "w", "alpha", "kappa", "x")] + \
               [("region", ctypes.c_int)]


class Ifc67State(ctypes.Structure):
    _fields_ = [(n, ctypes.c_double) for n in ("p", "T", "v", "h", "s", "x")] + [("region", ctypes.c_int)]


class CLibrary:
    def __init__(self, path):
        self.lib = ctypes.CDLL(path)
        self.lib.ondrel_message.restype = ctypes.c_char_p

    def evaluate(self, composition, pair, in1, in2, names, threads=1):
        """ondrel_evaluate on a mixture made through the C interface: (n x k values, statuses)."""
        lib = self.lib
        n = len(composition)
        cnames = (ctypes.c_char_p * n)(*[k.encode() for k in composition])
        x = (ctypes.c_double * n)(*composition.values())
        mix = ctypes.c_void_p()
        status = lib.ondrel_mixture_create(n, cnames, x, ctypes.byref(mix), None, ctypes.c_size_t(0))
        assert status == 0, lib.ondrel_message(status)
        try:
            in1 = np.ascontiguousarray(in1, dtype=np.float64)
            in2 = np.ascontiguousarray(in2, dtype=np.float64)
            out = np.empty((in1.size, len(names)))
            st = np.empty(in1.size, dtype=np.intc)
            props = (ctypes.c_char_p * len(names))(*[s.encode() for s in names])
            dp = ctypes.POINTER(ctypes.c_double)
            status = lib.ondrel_evaluate(mix, pair.encode(), ctypes.c_size_t(in1.size), in1.ctypes.data_as(dp),
                                         in2.ctypes.data_as(dp), ctypes.c_size_t(len(names)), props,
                                         out.ctypes.data_as(dp), st.ctypes.data_as(ctypes.POINTER(ctypes.c_int)),
                                         ctypes.c_uint(threads))
            assert status == 0, lib.ondrel_message(status)
            return out, st
        finally:
            lib.ondrel_mixture_free(mix)

    def if97(self, function, a, b):
        """(status, state) of ondrel_if97_<function>."""
        state = If97State()
        f = getattr(self.lib, "ondrel_if97_" + function)
        f.argtypes = [ctypes.c_double, ctypes.c_double, ctypes.POINTER(If97State)]
        return f(a, b, ctypes.byref(state)), state

    def ifc67(self, function, a, b):
        """(status, state) of ondrel_ifc67_<function> on a fresh context."""
        lib = self.lib
        lib.ondrel_ifc67_context_create.restype = ctypes.c_void_p
        ctx = ctypes.c_void_p(lib.ondrel_ifc67_context_create())
        try:
            state = Ifc67State()
            f = getattr(lib, "ondrel_ifc67_" + function)
            f.argtypes = [ctypes.c_void_p, ctypes.c_double, ctypes.c_double, ctypes.POINTER(Ifc67State)]
            return f(ctx, a, b, ctypes.byref(state)), state
        finally:
            lib.ondrel_ifc67_context_free(ctx)


@pytest.fixture(scope="session")
def clib():
    path = os.environ.get("ONDREL_LIBRARY")
    if not path:
        pytest.fail("ONDREL_LIBRARY must name the shared library (the CTest tests set it)")
    return CLibrary(path)


def same_bits(a, b):
    """Equal bit for bit, NaN included."""
    a = np.asarray(a, dtype=np.float64)
    b = np.asarray(b, dtype=np.float64)
    return a.shape == b.shape and np.array_equal(a.view(np.uint64), b.view(np.uint64))
