"""What the three models share: status codes, the exception, and the
broadcasting of inputs into the compiled calls and of results back out."""

import enum
import warnings

import numpy as np

from . import _ondrel

Status = enum.IntEnum("Status", [(name, number) for number, name, _ in _ondrel.statuses])
Status.__doc__ = """Status of a call or of one point of an array call (the numbers of the C interface).

An array call returns the statuses of its points as an int8 array; compare
them with these names, e.g. ``r["status"] == ondrel.Status.no_solution``."""

_MESSAGES = {number: text for number, _, text in _ondrel.statuses}


def message(status):
    """The message of a status code, e.g. ``message(2) == "unknown component"``."""
    return _MESSAGES.get(int(status), "unknown status")


class OndrelError(ValueError):
    """A call that could not give a value. ``status`` names the fault
    (an ``ondrel.Status``); the text says which inputs caused it."""

    def __init__(self, status, text):
        super().__init__(text)
        self.status = Status(status)


class NotUniqueWarning(UserWarning):
    """Several states reproduce the inputs; the documented one was returned."""


def _codes(names, known, what):
    """Codes of the property names (a name or a sequence of names)."""
    if isinstance(names, str):
        names = [names]
    codes = []
    for name in names:
        try:
            codes.append(known.index(name))
        except ValueError:
            raise OndrelError(Status.unknown_property,
                              f"unknown property {name!r} of {what}; known: {', '.join(known)}") from None
    if not codes:
        raise OndrelError(Status.unknown_property, "no property asked for")
    return codes


def _pair_code(pair, known, what):
    try:
        return known.index(pair)
    except ValueError:
        raise OndrelError(Status.unknown_pair,
                          f"unknown input pair {pair!r} of {what}; known: {', '.join(known)}") from None


def _pair_of(inputs, pairs, what):
    """The input pair named by two keyword arguments, in either order."""
    if len(inputs) != 2:
        raise TypeError(f"state() takes exactly two inputs, got {', '.join(inputs) or 'none'}")
    a, b = inputs
    if a + b in pairs:
        return a + b, inputs[a], inputs[b]
    if b + a in pairs:
        return b + a, inputs[b], inputs[a]
    raise OndrelError(Status.unknown_pair, f"{what} is not solved from {a} and {b}; pairs: {', '.join(pairs)}")


def _real(x, which):
    a = np.asarray(x)
    if a.dtype.kind not in "iuf":
        raise TypeError(f"input {which} must be real numbers, not {a.dtype}")
    return a


# Python's own numbers (bool excluded: it is no pressure or temperature).
_NUMBERS = (float, int)


def _is_scalar(x):
    return np.ndim(x) == 0


def _failure(status, pair, a, b, detail=""):
    # The library's own sentence names the inputs with their units, where it has one.
    return OndrelError(status, f"{message(status)}: {detail}" if detail else f"{pair} = ({a!r}, {b!r}): {message(status)}")


def evaluate(scalar_call, array_call, pair, in1, in2, names, codes, threads, raise_on_error):
    """Runs one model's calls: scalars in, scalars out (an exception on
    failure); arrays in, arrays out in the broadcast shape, failed points
    NaN with their status, or an exception for the first failed point.

    scalar_call(a, b) -> (status, values, detail); array_call(a, b) -> (out, status)."""
    single = isinstance(names, str)
    if type(in1) in _NUMBERS and type(in2) in _NUMBERS:  # the common scalar call, without numpy
        a = float(in1)
        b = float(in2)
    elif _is_scalar(in1) and _is_scalar(in2):
        a = float(_real(in1, 1))
        b = float(_real(in2, 2))
    else:
        a = b = None
    if a is not None:
        status, values, detail = scalar_call(a, b)
        if status != 0:
            raise _failure(status, pair, a, b, detail)
        return values[0] if single else dict(zip(_names(names), values))
    a, b = _real(in1, 1), _real(in2, 2)
    if a.shape != b.shape:
        a, b = np.broadcast_arrays(a, b)
    shape = a.shape
    flat1 = np.ascontiguousarray(a, dtype=np.float64).reshape(-1)
    flat2 = np.ascontiguousarray(b, dtype=np.float64).reshape(-1)
    out, status = array_call(flat1, flat2, int(threads))
    if raise_on_error:
        failed = np.flatnonzero(status)
        if failed.size:
            i = int(failed[0])
            error = _failure(int(status[i]), pair, float(flat1[i]), float(flat2[i]))
            error.args = (f"point {np.unravel_index(i, shape) if len(shape) > 1 else i}: {error.args[0]}",)
            raise error
    if single:
        return out[:, 0].reshape(shape)
    result = {name: out[:, j].reshape(shape) for j, name in enumerate(_names(names))}
    result["status"] = status.reshape(shape)
    return result


def _names(names):
    return [names] if isinstance(names, str) else list(names)


def warn_not_unique(pair, a, b, which):
    warnings.warn(NotUniqueWarning(f"several states reproduce {pair} = ({a!r}, {b!r}); {which} was returned"),
                  stacklevel=5)


def typed_calls(namespace, props, pairs, defaults, what):
    """Adds to a module's namespace one function a pair, from_pT, from_ph, ...:
    props(pair, in1, in2, names) under the name of its inputs."""
    def typed(pair):
        def call(in1, in2, names=defaults, *, threads=0, raise_on_error=False):
            return props(pair, in1, in2, names, threads=threads, raise_on_error=raise_on_error)
        a, b = pair
        call.__name__ = call.__qualname__ = f"from_{a.lower() if a == 'P' else a}{b}"
        call.__doc__ = (f"Properties at the states of given {a} and {b} ({what}): props({pair!r}, ...). "
                        f"names defaults to {', '.join(defaults)}.")
        return call

    for pair in pairs:
        f = typed(pair)
        namespace[f.__name__] = f
