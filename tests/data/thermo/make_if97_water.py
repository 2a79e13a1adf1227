#!/usr/bin/python3
# Writes if97_water.csv (run from this folder) with the oracle python3-iapws. Kinds: pT = pressure Pa
# and temperature K, px = pressure Pa and quality, Tx = temperature K and quality, sub = ice.
from iapws import IAPWS97
from iapws._iapws import _Sublimation_Pressure

PSAT_30C = IAPWS97(T=303.15, x=0.0).P * 1e6
STATES = [("reference", "pT", 101325.0, 1073.15), ("liquid_1bar_30C", "pT", 1e5, 303.15),
          ("saturation_30C", "Tx", 303.15, 0.0), ("saturation_100C", "Tx", 373.15, 0.0),
          ("saturation_triple", "Tx", 273.16, 0.0), ("saturation_50C", "Tx", 323.15, 0.0), ("saturation_critical", "Tx", 647.096, 0.0),
          ("liquid_30kPa_50C", "pT", 30000.0, 323.15), ("liquid_3kPa_sat", "px", 3000.0, 0.0),
          ("vapour_sat_30C", "px", PSAT_30C, 1.0), ("vapour_3kPa_30C", "pT", 3000.0, 303.15),
          ("liquid_1bar_triple", "pT", 1e5, 273.16), ("vapour_sat_triple", "px", 611.657, 1.0),
          ("vapour_10kPa_300C", "pT", 10000.0, 573.15), ("vapour_10kPa_800C", "pT", 10000.0, 1073.15),
          ("vapour_clip_300K", "pT", 611.657, 300.0), ("vapour_clip_300C", "pT", 611.657, 573.15),
          ("liquid_200bar_triple", "pT", 2.0e7, 273.16), ("vapour_1bar_700K", "pT", 1e5, 700.0)]
ICE = [("ice_250K", 250.0), ("ice_260K", 260.0), ("ice_below_triple", 273.15999999999997)]

with open("if97_water.csv", "w") as f:
    f.write("# Source: IAPWS-IF97 (IAPWS R7-97(2012)) and the sublimation pressure of IAPWS R14-08(2011), "
            "evaluated with python3-iapws 1.5.3, make_if97_water.py\n")
    f.write("label,kind,p_Pa,T_K,x,h_J_per_kg,s_J_per_kgK,cp_J_per_kgK,v_m3_per_kg\n")
    for label, kind, a, b in STATES:
        w = IAPWS97(P=a / 1e6, T=b) if kind == "pT" else IAPWS97(P=a / 1e6, x=b) if kind == "px" else IAPWS97(T=a, x=b)
        p, t, x = (a, b, -1.0) if kind == "pT" else (a, w.T, b) if kind == "px" else (w.P * 1e6, a, b)
        f.write(f"{label},{kind},{p:.10g},{t:.10g},{x:g},{w.h * 1e3:.12g},{w.s * 1e3:.12g},{w.cp * 1e3:.12g},{w.v:.12g}\n")
    for label, t in ICE:
        f.write(f"{label},sub,{_Sublimation_Pressure(t) * 1e6:.10g},{t!r},,,,,\n")
