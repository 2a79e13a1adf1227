"""Water and steam by IAPWS-IF97, in SI units.

    ondrel.if97.props("Ph", 1.0e6, 2.8e6, ["T", "x"])      # dict of floats
    ondrel.if97.from_pT(p_array, T_array, "h")              # an array
    ondrel.if97.state(P=1.0e5, x=1.0)                       # a saturated vapour, as a dict

Pairs (PAIRS): PT, Ph, Ps, Pu, Pv, Th, Ts, Tv, vh, vs, vu, hs, Tx, Px, where
x is the vapour quality (Tx from 273.15 K to 647.096 K, Px from 611.213 Pa
to 22.064 MPa). Each pair also has a function of its own, from_pT, from_ph,
..., from_px. The range is that of IF97: 273.15 K to 1073.15 K up to 100 MPa,
and to 2273.15 K up to 50 MPa.

Properties (PROPERTIES):
  P, T, v, d, h, s, u   pressure Pa, temperature K, specific volume m3/kg,
                        density kg/m3, enthalpy J/kg, entropy J/(kg K), internal energy J/kg
  cp, cv, w             heat capacities J/(kg K), speed of sound m/s
  alpha, kappa_T        isobaric expansion coefficient 1/K, isothermal compressibility 1/Pa
  x                     vapour quality: the vapour mass fraction of a wet state; in one phase
                        0 when liquid-like, 1 otherwise
  region                the IF97 region, 1 to 5 (4: wet)
  eta, lambda           viscosity Pa s (IAPWS 2008), thermal conductivity W/(m K) (IAPWS 2011)
In a wet state cp, cv, w, alpha, kappa_T, eta and lambda are undefined: a
point that asks for one of them fails with status not_available.

Faults and arrays as for ondrel.Mixture.props: scalars raise OndrelError,
arrays give NaN and a status per point (or raise with raise_on_error=True).
The library keeps no state between IF97 calls, so any thread may call it.
"""

import numpy as np

from . import _ondrel
from ._calls import OndrelError, _codes, _is_scalar, _pair_code, _pair_of, _real, evaluate, message, typed_calls

PAIRS = tuple(_ondrel.if97_pairs)
PROPERTIES = tuple(_ondrel.water_properties)

# Defined at every state, wet or not: what state() returns by default.
_STATE_PROPERTIES = ("P", "T", "v", "d", "h", "s", "u", "x", "region")


def props(pair, in1, in2, names=_STATE_PROPERTIES, *, threads=0, raise_on_error=False):
    """Properties at the states given by an input pair (see the module's text);
    names defaults to those defined at every state: P, T, v, d, h, s, u, x, region."""
    code = _pair_code(pair, PAIRS, "IF97")
    codes = _codes(names, PROPERTIES, "IF97")

    def scalar(a, b):
        status, values = _ondrel.if97_scalar(code, a, b, codes)
        return status, values, ""

    def array(a, b, threads):
        return _ondrel.if97_array(code, a, b, codes, threads)

    return evaluate(scalar, array, pair, in1, in2, names, codes, threads, raise_on_error)


def state(*, props=None, threads=0, raise_on_error=False, **inputs):
    """Properties of the state given by two named inputs, e.g. state(P=1e5,
    h=2e6) or state(T=373.15, x=0.5): a dict of P, T, v, d, h, s, u, x and
    region, or of the names in props."""
    pair, a, b = _pair_of(inputs, PAIRS, "IF97")
    names = list(_STATE_PROPERTIES if props is None else ([props] if isinstance(props, str) else props))
    return globals()["props"](pair, a, b, names, threads=threads, raise_on_error=raise_on_error)


def surface_tension(T, *, raise_on_error=False):
    """Surface tension of water on the saturation line (IAPWS 2014), N/m,
    from 273.15 K to the critical 647.096 K. A scalar outside that range
    raises OndrelError; an array gives NaN there (or raises with
    raise_on_error=True)."""
    t = _real(T, 1)
    values, status = _ondrel.if97_surface_tension(np.ascontiguousarray(t, dtype=np.float64).reshape(-1))
    if _is_scalar(T) or raise_on_error:
        bad = np.flatnonzero(status)
        if bad.size:
            i = int(bad[0])
            raise OndrelError(int(status[i]), f"surface tension at T = {float(t.reshape(-1)[i])!r}: "
                              f"{message(int(status[i]))}")
    if _is_scalar(T):
        return float(values[0])
    return values.reshape(t.shape)


typed_calls(globals(), props, PAIRS, _STATE_PROPERTIES, "IF97")
