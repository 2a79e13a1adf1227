"""Fixed-column numeric fields as the gas table loader reads them.

Writing: Fw.d (fixed point) and Ew.d (exponent form, written with one digit
before the decimal point so that nine significant digits fit in E15.8).
Reading: the rules of formatted scientific input. Blanks inside a field are
ignored and an all-blank field reads as zero; a field without a decimal point
has d implied decimals; the exponent may be written E+nn, D+nn, e-nn or as a
bare signed number after the mantissa.

Values are converted through decimal.Decimal so that a field reads back to
the double nearest to its decimal text, exactly as a correct reader does.
"""

from decimal import Decimal
import re

_MANTISSA_EXPONENT = re.compile(
    r"^([+-]?)(\d*)(?:\.(\d*))?(?:(?:[EeDd]([+-]?\d+))|([+-]\d+))?$")


class FieldError(ValueError):
    """A fixed-column field that is not a number, or that does not fit."""


def read_real(field, decimals):
    """Decimal value of one Fw.d / Ew.d field (text of exactly w columns)."""
    text = field.replace(" ", "")
    if not text:
        return Decimal(0)
    m = _MANTISSA_EXPONENT.match(text)
    if m is None:
        raise FieldError("not a number: %r" % field)
    sign, whole, frac, exp_letter, exp_bare = m.groups()
    if not whole and not frac:
        raise FieldError("no digits: %r" % field)
    exponent = int(exp_letter or exp_bare or "0")
    if frac is None:
        # No decimal point: the last d digits are decimals.
        value = Decimal(sign + whole).scaleb(-decimals)
    else:
        value = Decimal(sign + (whole or "0") + "." + (frac or "0"))
    return value.scaleb(exponent)


def read_int(field):
    """Value of an Iw field; blanks are ignored, all blanks read as zero."""
    text = field.replace(" ", "")
    if not text:
        return 0
    if not re.fullmatch(r"[+-]?\d+", text):
        raise FieldError("not an integer: %r" % field)
    return int(text)


def write_f(value, width, decimals):
    """Fw.d text of a Decimal; fails when the value needs more digits or room."""
    text = format(value, "%d.%df" % (width, decimals))
    if len(text) != width:
        raise FieldError("%s does not fit F%d.%d" % (value, width, decimals))
    if Decimal(text) != value:
        raise FieldError("%s loses digits in F%d.%d" % (value, width, decimals))
    return text


def write_e(value, width=15, decimals=8):
    """Ew.d text of a float (1.23456789E+00 style); fails when it does not fit
    or does not read back to the same double."""
    text = format(value, "%d.%dE" % (width, decimals))
    if len(text) != width:
        raise FieldError("%r does not fit E%d.%d" % (value, width, decimals))
    if float(text) != value:
        raise FieldError("%r loses digits in E%d.%d" % (value, width, decimals))
    return text


def round_e(value, decimals=8):
    """The double that an Ew.d field written from value reads back as."""
    return float(format(value, ".%dE" % decimals))


def write_i(value, width):
    """Iw text of an integer, right-justified."""
    text = "%*d" % (width, value)
    if len(text) != width:
        raise FieldError("%d does not fit I%d" % (value, width))
    return text


def column(line, start, width):
    """Columns start..start+width-1 (1-based) of a line, blank-padded as a
    short line reads; a trailing CR LF is not part of the line."""
    line = line.rstrip("\r\n")
    return line[start - 1:start - 1 + width].ljust(width)
