"""Water and steam by the 1967 IFC formulation for industrial use (IFC-67),
in SI units: one call per input pair.

    ondrel.ifc67.from_ph(1.0e6, 2.8e6, ["T", "x"])
    ondrel.ifc67.props("PT", p_array, T_array, "h")

Pairs (PAIRS) and their calls: PT from_pT, Ph from_ph, Ps from_ps, Pu from_pu,
Pv from_pv, Px from_px, Tv from_Tv, Th from_Th, Tx from_Tx, Tu from_Tu,
Ts from_Ts, sx from_sx, hs from_hs, us from_us, vh from_vh, vs from_vs,
vu from_vu; x is the dryness fraction (vapour mass fraction).

Properties (PROPERTIES): P, T, v, d, h, s, u, x, region (1 to 6, the
package's regions: 1 compressed liquid to 623.15 K, 2 superheated vapour,
3 and 4 the vapour and liquid sides of the critical region, 5 and 6 wet),
and for a state in one phase cp J/(kg K), eta Pa s and lambda W/(m K); a
wet point that asks for cp, eta or lambda fails with status not_available.

Messages: what the package reports (a state outside its range, an iteration
that ran out of steps) becomes a Python warning of class IFC67Warning, with
the package's line as its text and its error code as `code`; nothing is
printed and the interpreter never stops. An array call warns for its first
20 messages and then once with their count. A point the package reports as
outside its range fails (NaN, status outside_data_range): the package would
have taken the nearest state inside it, which is not the state asked for.

Faults and arrays otherwise as for ondrel.Mixture.props.
"""

import warnings

from . import _ondrel
from ._calls import _codes, _pair_code, evaluate, typed_calls

PAIRS = tuple(_ondrel.ifc67_pairs)
PROPERTIES = tuple(_ondrel.ifc67_properties)
_WATER = tuple(_ondrel.water_properties)

_DEFAULT_PROPERTIES = ("P", "T", "v", "h", "s", "x", "region")

# An array call warns for this many messages, then once with the count of the rest.
_MESSAGES_SHOWN = 20


class IFC67Warning(UserWarning):
    """A message of the IFC-67 package; `code` is its error code (above 0 out
    of range, below 0 no convergence, 0 a line that is not counted)."""

    def __init__(self, text, code=0):
        super().__init__(text)
        self.code = code


def _warn(messages):
    for code, text in messages[:_MESSAGES_SHOWN]:
        warnings.warn(IFC67Warning(text.strip(), code), stacklevel=5)
    if len(messages) > _MESSAGES_SHOWN:
        warnings.warn(IFC67Warning(f"{len(messages) - _MESSAGES_SHOWN} more messages of the IFC-67 package"),
                      stacklevel=5)


def props(pair, in1, in2, names=_DEFAULT_PROPERTIES, *, threads=0, raise_on_error=False):
    """Properties at the states given by an input pair (see the module's text)."""
    code = _pair_code(pair, PAIRS, "IFC-67")
    # Checked against its own list, passed as the codes of the water properties.
    codes = [_WATER.index(PROPERTIES[c]) for c in _codes(names, PROPERTIES, "IFC-67")]

    def scalar(a, b):
        status, values, messages = _ondrel.ifc67_scalar(code, a, b, codes)
        _warn(messages)
        return status, values, messages[0][1].strip() if messages and status else ""

    def array(a, b, threads):
        out, status, messages = _ondrel.ifc67_array(code, a, b, codes, threads)
        _warn(messages)
        return out, status

    return evaluate(scalar, array, pair, in1, in2, names, codes, threads, raise_on_error)


typed_calls(globals(), props, PAIRS, _DEFAULT_PROPERTIES, "IFC-67")
