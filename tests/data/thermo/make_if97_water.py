#!/usr/bin/python3
"""Writes if97_water.csv: IAPWS-IF97 states used by the condensing-water tests.

Oracle: python3-iapws (Debian package), class IAPWS97. Run from this folder.
"""
from iapws import IAPWS97

PSAT_30C = IAPWS97(T=303.15, x=0.0).P * 1e6

# (label, kind, first value, second value): kind pT = pressure Pa and
# temperature K; px = pressure Pa and quality; Tx = temperature K and quality.
STATES = [
    ("reference", "pT", 101325.0, 1073.15),
    ("liquid_1bar_30C", "pT", 100000.0, 303.15),
    ("saturation_30C", "Tx", 303.15, 0.0),
    ("saturation_100C", "Tx", 373.15, 0.0),
    ("saturation_triple", "Tx", 273.16, 0.0),
    ("saturation_50C", "Tx", 323.15, 0.0),
    ("liquid_30kPa_50C", "pT", 30000.0, 323.15),
    ("liquid_3kPa_sat", "px", 3000.0, 0.0),
    ("vapour_sat_30C", "px", PSAT_30C, 1.0),
    ("vapour_3kPa_30C", "pT", 3000.0, 303.15),
    ("liquid_1bar_triple", "pT", 100000.0, 273.16),
    ("vapour_sat_triple", "px", 611.657, 1.0),
    ("vapour_10kPa_300C", "pT", 10000.0, 573.15),
    ("vapour_10kPa_800C", "pT", 10000.0, 1073.15),
    ("vapour_clip_300K", "pT", 611.657, 300.0),
    ("vapour_clip_300C", "pT", 611.657, 573.15),
    ("liquid_200bar_triple", "pT", 2.0e7, 273.16),
]


def row(label, kind, a, b):
    if kind == "pT":
        w = IAPWS97(P=a / 1e6, T=b)
        p, t, x = a, b, -1.0
    elif kind == "px":
        w = IAPWS97(P=a / 1e6, x=b)
        p, t, x = a, w.T, b
    else:
        w = IAPWS97(T=a, x=b)
        p, t, x = w.P * 1e6, a, b
    return f"{label},{kind},{p:.10g},{t:.10g},{x:g},{w.h * 1e3:.12g},{w.s * 1e3:.12g},{w.cp * 1e3:.12g},{w.v:.12g}"


with open("if97_water.csv", "w") as f:
    f.write("# Source: IAPWS-IF97 (IAPWS R7-97(2012)) evaluated with python3-iapws 1.5.3, make_if97_water.py\n")
    f.write("label,kind,p_Pa,T_K,x,h_J_per_kg,s_J_per_kgK,cp_J_per_kgK,v_m3_per_kg\n")
    for s in STATES:
        f.write(row(*s) + "\n")
