#!/usr/bin/env python3
"""Writes the seed corpus of the fuzz harnesses (tests/fuzz/corpus/<name>/).

The encoding mirrors tests/fuzz/fuzz_input.hpp: a number is a tag byte (a
special value, a signed count of quarters in two bytes, or 8 raw bytes), a
text is a length byte and its bytes, a pick is an index byte into the
harness's list (or 255 and a text). Run it after changing an encoding or a
list; the seeds are committed.
"""
import math
import os
import struct
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.dirname(os.path.dirname(HERE))

SPECIAL = [math.nan, -math.nan, math.inf, -math.inf, 0.0, -0.0, 1e300, -1e300, 1e-300, 5e-324,
           sys.float_info.max, -sys.float_info.max, 1e-35, -1.0, 1.0, -273.15, -273.16, 0.01, 1.01325, 10.0,
           25.0, 50.0, 100.0, 220.64, 300.0, 373.946, 900.0, 1000.0, 2000.0, 2800.0, 6.5, 7.5]
QUARTERS_TAG = len(SPECIAL)
RAW_TAG = 192


def number(x):
    for k, s in enumerate(SPECIAL):
        if (math.isnan(x) and math.isnan(s) and k == 0) or (s == x and math.copysign(1, s) == math.copysign(1, x)):
            return bytes([k])
    q = x * 4
    if q == int(q) and -32768 <= q <= 32767:
        return bytes([QUARTERS_TAG]) + struct.pack("<h", int(q))
    return bytes([RAW_TAG]) + struct.pack("<d", x)


def text(s):
    b = s.encode("latin-1")
    return bytes([len(b)]) + b


def pick(items, s):
    return bytes([items.index(s)]) if s in items else b"\xff" + text(s)


# The lists of the harnesses, in their order.
SPECS = ["PT", "TP", "Pv", "Pd", "Ph", "Ps", "Pu", "Tv", "Td", "Th", "Ts", "Tu", "vh", "vs", "vu", "dh", "ds",
         "du", "hs", "su", "hv", "vP"]
NAMES = ["N2", "O2", "AR", "CO2", "H2O", "H2O(IF)", "H2O(L)", "C(S)", "SIO2(L)", "AL2O3(S)", "CH4", "CO", "H2",
         "SO2", "NO", "HE", "H2O(IF)  ", "n2"]
OUTS = ["P", "T", "v", "d", "h", "s", "u", "cv", "dP_dT", "dP_dv", "d2P_dT2", "d2P_dv2", "d2P_dTdv", "dCv_dT",
        "eta", "lambda", "cp"]
INFOS = ["M_mol", "T_min", "T_max"]
LETTERS = ["P", "T", "h", "s", "u", "v", "x", "X", "d", "q", "p", "t"]
PROPERTIES = ["p", "t", "v", "d", "h", "s", "u", "x", "cp", "cv", "w", "dv", "tc", "st", "kv", "pr", "P.", "H.",
              "S.", "CP.", "V.", "q", "c", "eta", "lambda", "sigma", "p,t,v,h,s,u,x,cv,dv,tc", "h,s.", "P..", ""]
KEYS = ["P,T,V,H,S,X,CP,DV,TC.", "H,S,V.", "T,X", "CP,H", "DV,TC", "H.S", "ABCDE,H", "", ".", "H,,S", "h", "P, T"]
ROUTINES = ["pt", "ph", "ps", "pu", "pv", "px", "tv", "th", "tx", "tu", "ts", "sx", "hs", "us", "vh", "vs", "vu"]

AIR = [("N2", 0.7809), ("O2", 0.2095), ("AR", 0.0096)]
FLUE = [("N2", 0.71), ("CO2", 0.13), ("O2", 0.035), ("AR", 0.005), ("H2O(IF)", 0.12)]
DRY = [("N2", 0.71), ("CO2", 0.13), ("H2O", 0.12), ("O2", 0.035), ("AR", 0.005)]
WATER = [("H2O(IF)", 1.0)]


def mixture(components, width=8):
    out = bytes([len(components), width])
    for name, c in components:
        out += pick(NAMES, name) + number(c)
    return out


def request(spec, a, b, components, kind, out="h", carried=0):
    s = pick(SPECS, spec) + number(a) + number(b) + mixture(components) + bytes([kind])
    if kind == 0:
        s += pick(OUTS, out)
    elif kind >= 2:
        s += bytes([carried])
    return b"\x00" + s  # call selector: a request


def mixture_seeds():
    return {
        "prop_air_pt": bytes([0]) + request("PT", 1.01325, 25.0, AIR, 0, "h"),
        "prop_flue_ph": bytes([0]) + request("Ph", 1.0, 100.0, FLUE, 0, "T"),
        "allprops_flue_pt": bytes([0]) + request("PT", 1.01325, 30.0, FLUE, 1),
        "get_p_dry_hs": bytes([0]) + request("hs", -2455.9, 7.65, DRY, 2),
        "get_t_flue_vu": bytes([0]) + request("vu", 0.9, 100.0, FLUE, 3),
        "prop_water_pt_then_nan": bytes([1]) + request("PT", 10.0, 50.0, WATER, 0, "h")
        + request("Ph", 1.01325, math.nan, DRY, 0, "T"),
        "info_and_state_functions": bytes([0]) + b"\x03" + mixture(FLUE) + number(1e5) + number(300.0)
        + pick(INFOS, "T_max") + bytes([2]) + number(1.0) + number(6000.0) + number(-2.0e6) + number(1e-6)
        + bytes([0]),
    }


def if97_seeds():
    def library(c1, v1, c2, v2, props):
        return b"\x00" + pick(LETTERS, c1) + pick(LETTERS, c2) + number(v1) + number(v2) + pick(PROPERTIES, props) \
            + bytes([80])

    def adapter(spec, v1, v2, prop, kind):
        return b"\x01" + pick(LETTERS, spec[0]) + pick(LETTERS, spec[1]) + number(v1) + number(v2) \
            + pick(PROPERTIES, prop) + bytes([80, kind])

    return {
        "main_pt_h": bytes([0]) + library("P", 10.0, "T", 200.0, "h"),
        "main_hs_list": bytes([0]) + library("h", 2800.0, "s", 6.5, "p,t,v,h,s,u,x,cv,dv,tc"),
        "prop_ph_t": bytes([0]) + adapter("Ph", 50.0, 3000.0, "t", 0),
        "props_tq": bytes([0]) + adapter("Tq", 100.0, 0.5, "P.", 1),
        "allprops_pt": bytes([0]) + adapter("PT", 1.0, 20.0, "h", 2),
        "getinfo": bytes([0]) + adapter("PT", 1.0, 20.0, "h", 3) + bytes([9, 8]),
    }


def pwsftn_seeds():
    def entry(routine, x, y, keys):
        return b"\x00" + bytes([ROUTINES.index(routine)]) + number(x) + number(y) + pick(KEYS, keys)

    def inverse(routine, a, b, eps):
        return b"\x01" + number(a) + number(b) + number(eps) + bytes([ROUTINES.index(routine)])

    def equations(p, t, eps, f, g, kind):
        return b"\x02" + number(p) + number(t) + number(eps) + bytes([f, g]) + number(0.001) + number(0.002) \
            + number(1.0) + bytes([kind, 0])

    return {
        "entry_pt": bytes([0]) + entry("pt", 10.0, 200.0, "P,T,V,H,S,X,CP,DV,TC."),
        "entry_ph_wet": bytes([0]) + entry("ph", 10.0, 2000.0, "T,X"),
        "entry_hs": bytes([0]) + entry("hs", 2800.0, 6.5, "H,S,V."),
        "entry_vh": bytes([0]) + entry("vh", 0.1, 2700.0, "CP,H"),
        "inverse_ts": bytes([0]) + inverse("ts", 300.0, 6.5, 1e-8),
        "equations_region3": bytes([0]) + equations(0.005, 370.0, 1e-8, 14, 0, 1),
    }


def fieldread_seeds():
    return {
        "coefficient": b"\x08" + b" 2.95257626E+00",
        "limit": b"\x03" + b"  6000.000",
        "implied_decimals": b"\x05" + b"  12345",
        "bare_exponent": b"\x08" + b"-1.0+05",
        "d_exponent": b"\x02" + b" .5D-3",
        "count": b"\x00" + b" 2",
    }


def gasdata_seeds():
    with open(os.path.join(ROOT, "data", "Ondrel.Dat"), encoding="latin-1") as f:
        lines = f.read().splitlines()
    blocks = {lines[i][:8].rstrip(): lines[i:i + 4] for i in range(1, len(lines) - 3, 4)}

    def table(names):
        return "\n".join([lines[0]] + [l for n in names for l in blocks[n]]) + "\n"

    flue = table(["N2", "O2", "AR", "H2O", "H2O(IF)", "H2O(L)"])
    cut = table(["N2", "CO2"])[:-150]
    return {
        "file_flue": b"\x00" + flue.encode("latin-1"),
        "record_flue": b"\x01" + flue.encode("latin-1"),
        "file_cut_block": b"\x00" + cut.encode("latin-1"),
        "record_solids": b"\x01" + table(["C(S)", "SIO2(S)", "SIO2(L)"]).encode("latin-1"),
    }


def main():
    for harness, seeds in [("mixture", mixture_seeds()), ("if97", if97_seeds()), ("pwsftn", pwsftn_seeds()),
                           ("fieldread", fieldread_seeds()), ("gasdata", gasdata_seeds())]:
        folder = os.path.join(HERE, "corpus", harness)
        os.makedirs(folder, exist_ok=True)
        for name, data in seeds.items():
            with open(os.path.join(folder, name), "wb") as f:
                f.write(data)


if __name__ == "__main__":
    main()
