#!/usr/bin/env python3
"""The h-s (Mollier) chart of water and steam by IAPWS-IF97, and how far the
older IFC-67 formulation lies from it.

mollier_chart.png: the saturation dome, lines of constant quality, isobars
from 0.01 bar to 1000 bar and isotherms from 50 C to 800 C, all from IF97.
Each line is one array call: isobars from (P, h), isotherms from (T, s),
the dome and the quality lines from (T, x).

mollier_ifc67_difference.png: IFC-67 minus IF97 in enthalpy and entropy
along the same isobars, at equal pressure and temperature, and along the
saturation line at equal temperature.

    PYTHONPATH=<build>/python python3 mollier_chart.py [--out DIR]
"""
import argparse
import os

import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt  # noqa: E402
import numpy as np  # noqa: E402

from ondrel import if97, ifc67  # noqa: E402

BAR = 1e5                          # Pa
ZERO_C = 273.15                    # K
T_TRIPLE = 273.16                  # K
T_CRIT, P_CRIT = 647.096, 22.064e6  # IF97's critical point
P_CRIT_IFC67 = 22.12e6             # IFC-67's critical pressure (at 647.3 K)
T_TOP = 1073.15                    # K, 800 C: the top of IF97's region 2 and of IFC-67
P_LOW, P_HIGH = 0.01 * BAR, 1000 * BAR

ISOBARS_BAR = [0.01, 0.1, 1, 10, 100, P_CRIT / BAR, 500, 1000]
ISOTHERMS_C = [50, 100, 200, 300, 400, 500, 600, 700, 800]
QUALITIES = [0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9]


def bar_label(p_bar):
    return f"{p_bar:g} bar"


def isobar(p, n=800):
    """(s, h) of an isobar from the triple-point temperature to 800 C."""
    h_ends = if97.from_pT(p, np.array([T_TRIPLE + 0.01, T_TOP]), "h")
    r = if97.from_ph(p, np.linspace(*h_ends, n), ["s", "h"])
    return r["s"], r["h"]


def isotherm(t, n=800):
    """(s, h) of an isotherm from 1000 bar down to 0.01 bar: one (T, s) call,
    straight through the wet region where there is one."""
    s_ends = if97.from_pT(np.array([P_HIGH, P_LOW]), t, "s")
    r = if97.props("Ts", t, np.linspace(*s_ends, n), ["s", "h"])
    return r["s"], r["h"]


def saturation(x, n=400, t_from=T_TRIPLE):
    """(s, h) of the wet states of quality x from t_from to the critical point."""
    t = np.linspace(t_from, T_CRIT, n)
    r = if97.from_Tx(t, x, ["s", "h"])
    return r["s"], r["h"]


def mollier_chart(path):
    kj = 1e-3
    fig, ax = plt.subplots(figsize=(10, 8), layout="constrained")
    for x in QUALITIES:
        s, h = saturation(x)
        ax.plot(s * kj, h * kj, color="0.6", lw=0.7, ls="--")
        # Labelled at 75 C, where no isobar or isotherm drawn crosses the wet region.
        label = if97.from_Tx(75.0 + ZERO_C, x, ["s", "h"])
        ax.text(label["s"] * kj, label["h"] * kj, f"{x:g}", fontsize=7, color="0.3", ha="center", va="center",
                bbox=dict(fc="white", ec="none", pad=0.5))
    for p_bar in ISOBARS_BAR:
        s, h = isobar(p_bar * BAR)
        ax.plot(s * kj, h * kj, color="tab:blue", lw=1)
        ax.annotate(bar_label(p_bar), (s[-1] * kj, h[-1] * kj), xytext=(2, 3), textcoords="offset points",
                    fontsize=8, color="tab:blue", ha="left", va="bottom", rotation=70)
    for t_c in ISOTHERMS_C:
        s, h = isotherm(t_c + ZERO_C)
        ax.plot(s * kj, h * kj, color="tab:red", lw=0.9)
        ax.annotate(f"{t_c} °C", (s[-1] * kj, h[-1] * kj), xytext=(4, 0), textcoords="offset points",
                    fontsize=8, color="tab:red", va="center")
    s_liq, h_liq = saturation(0.0)
    s_vap, h_vap = saturation(1.0)
    ax.plot(np.r_[s_liq, s_vap[::-1]] * kj, np.r_[h_liq, h_vap[::-1]] * kj, color="k", lw=2)
    crit = if97.from_pT(P_CRIT, T_CRIT, ["s", "h"])
    ax.plot(crit["s"] * kj, crit["h"] * kj, "ko", ms=5)
    ax.annotate("critical point\n220.64 bar, 373.95 °C", (crit["s"] * kj, crit["h"] * kj), xytext=(-10, 40),
                textcoords="offset points", ha="right", fontsize=8, arrowprops=dict(arrowstyle="-", lw=0.6))
    ax.plot([], [], color="tab:blue", label="isobars")
    ax.plot([], [], color="tab:red", label="isotherms")
    ax.plot([], [], color="0.6", ls="--", label="constant quality x")
    ax.plot([], [], color="k", lw=2, label="saturation (x = 0, x = 1)")
    ax.legend(loc="upper left")
    ax.set(xlim=(0, 13), ylim=(0, 4600), xlabel="specific entropy s / (kJ/(kg K))",
           ylabel="specific enthalpy h / (kJ/kg)", title="Mollier chart of water and steam (IAPWS-IF97)")
    ax.grid(color="0.9", lw=0.5)
    fig.savefig(path, dpi=120)
    plt.close(fig)


def difference_chart(path):
    fig, (ax_h, ax_s) = plt.subplots(2, 1, figsize=(10, 8), sharex=True, layout="constrained")
    colours = plt.cm.viridis(np.linspace(0, 0.9, len(ISOBARS_BAR)))
    for p_bar, colour in zip(ISOBARS_BAR, colours):
        p = p_bar * BAR
        t = np.linspace(T_TRIPLE + 0.01, T_TOP, 2000)
        if p <= P_CRIT_IFC67:
            # Between the two formulations' saturation temperatures one gives
            # liquid and the other vapour: those points are left out (a gap).
            t_sat = [ifc67.from_px(p, 0.0, "T"), if97.from_px(p, 0.0, "T") if p <= P_CRIT else T_CRIT]
            t[(t >= min(t_sat) - 0.05) & (t <= max(t_sat) + 0.05)] = np.nan
        new = if97.from_pT(p, t, ["h", "s"])
        old = ifc67.from_pT(p, t, ["h", "s"])
        ax_h.plot(t - ZERO_C, (old["h"] - new["h"]) * 1e-3, color=colour, lw=1, label=bar_label(round(p_bar, 2)))
        ax_s.plot(t - ZERO_C, old["s"] - new["s"], color=colour, lw=1)
    # Along the saturation line, up to just below IF97's critical temperature.
    t = np.linspace(T_TRIPLE, T_CRIT - 2.0, 400)
    for x, style, name in [(0.0, ":", "saturated liquid"), (1.0, "--", "saturated vapour")]:
        new = if97.from_Tx(t, x, ["h", "s"])
        old = ifc67.from_Tx(t, x, ["h", "s"])
        ax_h.plot(t - ZERO_C, (old["h"] - new["h"]) * 1e-3, "k", ls=style, lw=1.2, label=name)
        ax_s.plot(t - ZERO_C, old["s"] - new["s"], "k", ls=style, lw=1.2)
    ax_h.set(ylabel="Δh = h(IFC-67) − h(IF97) / (kJ/kg)", ylim=(-12, 12),
             title="IFC-67 minus IF97 at the same pressure and temperature")
    ax_s.set(ylabel="Δs = s(IFC-67) − s(IF97) / (J/(kg K))", ylim=(-18, 18), xlabel="temperature / °C")
    ax_h.legend(ncol=5, fontsize=8, loc="lower left")
    ax_h.annotate("IFC-67 jumps at 350 °C,\nits sub-region 1/3 boundary", (350, -9), xytext=(230, -7),
                  fontsize=8, ha="center", arrowprops=dict(arrowstyle="->", lw=0.6))
    ax_h.annotate("near the critical point\nthe differences leave the scale", (372, 11.5), xytext=(250, 8),
                  fontsize=8, ha="center", arrowprops=dict(arrowstyle="->", lw=0.6))
    for ax in (ax_h, ax_s):
        ax.axhline(0, color="0.5", lw=0.5)
        ax.grid(color="0.9", lw=0.5)
    fig.savefig(path, dpi=120)
    plt.close(fig)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("--out", default=".", help="directory the pictures are written to (default: here)")
    args = parser.parse_args()
    os.makedirs(args.out, exist_ok=True)
    for name, draw in [("mollier_chart.png", mollier_chart), ("mollier_ifc67_difference.png", difference_chart)]:
        path = os.path.join(args.out, name)
        draw(path)
        print(f"wrote {path}")


if __name__ == "__main__":
    main()
