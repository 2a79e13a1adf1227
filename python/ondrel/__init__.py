"""Thermophysical properties of ideal-gas mixtures with condensing water, and
of water and steam by IAPWS-IF97 and IFC-67.

    import numpy as np, ondrel

    gas = ondrel.Mixture({"N2": 0.71, "CO2": 0.13, "H2O(IF)": 0.12, "O2": 0.035, "AR": 0.005})
    gas.props("PT", 1.0e5, 300.0, "h")                        # a float, J/kg
    r = gas.props("Ph", 1.0e5, np.linspace(-2e5, 2e5, 100), ["T", "cp", "x_condensed"])
    r["T"], r["status"]                                       # arrays, and the status of each point
    gas.state(P=1.0e5, T=320.0)                               # every property of one state, as a dict
    ondrel.if97.props("Ph", 1.0e6, 2.8e6, ["T", "x"])
    ondrel.ifc67.from_ph(1.0e6, 2.8e6, "T")

Units are SI throughout: Pa, K, m3/kg, kg/m3, J/kg, J/(kg K), m/s, Pa s, W/(m K).

Inputs are scalars or anything numpy turns into an array of real numbers;
the two inputs broadcast against each other as numpy's operators do, and
the results take the broadcast shape, as float64.

Faults: a call with scalar inputs raises ondrel.OndrelError, whose status
names the fault and whose text names the inputs. A call with arrays gives
NaN in the points that failed and, when a list of properties was asked for,
their statuses under "status" (0 where the point is good); with
raise_on_error=True it raises OndrelError for the first failed point
instead. Asking for one property by name (a str) returns its value or array
alone; asking with a list returns a dict.

Array calls run in C++ with the GIL released, split over `threads` threads
(0, the default: all cores); the values are bitwise those of one thread.
"""

from . import _ondrel
from ._calls import NotUniqueWarning, OndrelError, Status, message
from ._calls import _codes, _pair_code, _pair_of, evaluate, warn_not_unique

from . import if97, ifc67  # noqa: E402  (the submodules use the names above)

__all__ = ["Mixture", "Status", "OndrelError", "NotUniqueWarning", "message", "PAIRS", "PROPERTIES",
           "if97", "ifc67"]

#: Input pairs of the mixture model, in the letters of the inputs' order.
PAIRS = tuple(_ondrel.mixture_pairs)
#: Properties of the mixture model (see Mixture.props for their meaning).
PROPERTIES = tuple(_ondrel.mixture_properties)

# What state() returns by default: every property defined at every state
# (the dew point and relative humidity are asked for by name).
_STATE_PROPERTIES = tuple(p for p in PROPERTIES if p not in ("T_dew", "rh"))


class Mixture:
    """An ideal-gas mixture of the gas table's components, by mole fraction.

    Mixture({"N2": 0.79, "O2": 0.21}) or Mixture([("N2", 0.79), ("O2", 0.21)]).
    The composition is checked once: every name must be in the gas table
    ("H2O(IF)" is water that condenses, "H2O" water that stays vapour), the
    fractions finite and not negative, their sum one within 1e-6 (they are
    used as given, never normalised), at most 250 components. A fault raises
    OndrelError (status unknown_component, invalid_composition, ...).

    Enthalpies and entropies are those of the gas data: h = 0 for the
    elements in their standard state at 298.15 K; entropies are absolute,
    referred to 101325 Pa.

    A Mixture may be shared between threads; its scalar calls hold the GIL,
    its array calls release it.
    """

    def __init__(self, composition):
        items = list(composition.items()) if hasattr(composition, "items") else list(composition)
        names = [str(name) for name, _ in items]
        fractions = [float(x) for _, x in items]
        status, detail, mix = _ondrel.make_mixture(names, fractions)
        if status != 0:
            text = message(status) + (f": {detail}" if detail else "")
            raise OndrelError(status, text)
        self._mix = mix

    @property
    def composition(self):
        """The mole fractions by component name, as given."""
        return dict(zip(self._mix.names, self._mix.fractions))

    @property
    def molar_mass(self):
        """Molar mass, kg/mol."""
        return self._mix.molar_mass

    @property
    def t_min(self):
        """Lowest temperature of the gas data of every component, K."""
        return self._mix.t_min

    @property
    def t_max(self):
        """Highest temperature of the gas data of every component, K."""
        return self._mix.t_max

    @property
    def condensing(self):
        """Whether the mixture holds condensing water, "H2O(IF)"."""
        return self._mix.condensing

    def __reduce__(self):
        # Pickled as its composition (for multiprocessing and dask workers), made again where it lands.
        return (Mixture, (self.composition,))

    def __repr__(self):
        parts = ", ".join(f"{n!r}: {x!r}" for n, x in zip(self._mix.names, self._mix.fractions))
        return f"ondrel.Mixture({{{parts}}})"

    def props(self, pair, in1, in2, names, *, threads=0, raise_on_error=False):
        """Properties at the states given by an input pair.

        pair: two letters naming the inputs in their order, one of PAIRS
        ("PT", "Ph", "Ps", "hs", ...: P pressure, T temperature, v specific
        volume, d density, h enthalpy, s entropy, u internal energy).
        in1, in2: the inputs in SI units, scalars or arrays (broadcast).
        names: a property name, or a list of them, from PROPERTIES:
          P, T, v, d, h, s, u     the state (Pa, K, m3/kg, kg/m3, J/kg, J/(kg K), J/kg)
          cv, cp                  heat capacities with the phase amounts held, J/(kg K)
          cp_eq, cv_eq            equilibrium heat capacities, condensation included
          dP_dT, dP_dv, d2P_dT2, d2P_dv2, d2P_dTdv, dCv_dT   derivatives of the model's P(T, v)
          eta, lambda             viscosity Pa s, thermal conductivity W/(m K), of the gas phase
          w, kappa                speed of sound m/s and isentropic exponent of the gas phase
          x_gas, x_condensed      moles of gas and of condensed water per mole of mixture
          T_dew, rh               dew point of "H2O(IF)" at the pressure (K); relative humidity
          M, R                    molar mass kg/mol; gas constant J/(kg K)

        Each state is solved inside the mixture's data range [t_min, t_max]
        and checked: it reproduces both inputs within a relative 1e-9, or
        the point fails with status no_solution. Where several states
        reproduce the inputs, the one at the highest temperature is taken
        (for a pair that gives T, the lowest pressure); a scalar call then
        warns with NotUniqueWarning.

        Returns: for scalar inputs a float (names a str) or a dict of floats;
        for arrays an array, or a dict of arrays with "status" (int8, 0 for
        a good point, else an ondrel.Status), failed points NaN.
        """
        code = _pair_code(pair, PAIRS, "the mixture model")
        codes = _codes(names, PROPERTIES, "the mixture model")

        def scalar(a, b):
            status, values, detail, not_unique = self._mix.scalar(code, a, b, codes)
            if not_unique:
                warn_not_unique(pair, a, b, "the state at the highest temperature")
            return status, values, detail

        def array(a, b, threads):
            return self._mix.array(code, a, b, codes, threads)

        return evaluate(scalar, array, pair, in1, in2, names, codes, threads, raise_on_error)

    def state(self, *, props=None, threads=0, raise_on_error=False, **inputs):
        """Properties of the state given by two named inputs, e.g.
        state(P=1e5, h=2e5) or state(T=300.0, s=7000.0): a dict of every
        property defined at every state (all of PROPERTIES but T_dew and
        rh), or of the names in props. Inputs are scalars or arrays, as for
        props()."""
        pair, a, b = _pair_of(inputs, PAIRS, "the mixture model")
        names = list(_STATE_PROPERTIES if props is None else ([props] if isinstance(props, str) else props))
        return self.props(pair, a, b, names, threads=threads, raise_on_error=raise_on_error)
