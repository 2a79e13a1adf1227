#!/usr/bin/env python3
"""The cooling curve of a flue gas whose water condenses, at 1.01325 bar.

The gas (mole fractions N2 0.71, CO2 0.13, H2O(IF) 0.12, O2 0.035, AR 0.005)
is cooled from 200 C to 20 C. The heat taken from it is spread evenly and
one array call with the input pair (P, h) gives back the temperature and
the condensed water at each point. The picture shows the temperature
against the heat given up, the dew point, and the moles of water condensed
per mole of flue gas on a second axis: below the dew point the latent heat
makes the curve flatten.

    PYTHONPATH=<build>/python python3 flue_gas_cooling.py [--out DIR]
"""
import argparse
import os

import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt  # noqa: E402
import numpy as np  # noqa: E402

import ondrel  # noqa: E402

COMPOSITION = {"N2": 0.71, "CO2": 0.13, "H2O(IF)": 0.12, "O2": 0.035, "AR": 0.005}
P = 101325.0              # Pa
ZERO_C = 273.15           # K
T_HOT, T_COLD = 200.0 + ZERO_C, 20.0 + ZERO_C


def cooling_curve(gas, n=400):
    """Heat given up from T_HOT (J/kg), temperature (K) and condensate (mol/mol)."""
    h_hot, h_cold = gas.props("PT", P, np.array([T_HOT, T_COLD]), "h")
    h = np.linspace(h_hot, h_cold, n)
    r = gas.props("Ph", P, h, ["T", "x_condensed"], raise_on_error=True)
    return h_hot - h, r["T"], r["x_condensed"]


def draw(path):
    gas = ondrel.Mixture(COMPOSITION)
    q, t, x_cond = cooling_curve(gas)
    t_dew = gas.props("PT", P, T_HOT, "T_dew")
    h_hot, h_dew = gas.props("PT", P, np.array([T_HOT, t_dew]), "h")
    q_dew = h_hot - h_dew
    water = COMPOSITION["H2O(IF)"]

    fig, ax = plt.subplots(figsize=(9, 5.5), layout="constrained")
    ax.plot(q * 1e-3, t - ZERO_C, color="tab:red", lw=2, label="temperature")
    ax.axhline(t_dew - ZERO_C, color="tab:red", ls=":", lw=1)
    ax.plot(q_dew * 1e-3, t_dew - ZERO_C, "o", color="tab:red")
    ax.annotate(f"dew point {t_dew - ZERO_C:.1f} °C\nafter {q_dew * 1e-3:.0f} kJ/kg", (q_dew * 1e-3, t_dew - ZERO_C),
                xytext=(15, 25), textcoords="offset points", fontsize=9)
    ax.set(xlabel="heat given up from 200 °C / (kJ per kg of flue gas)", ylabel="temperature / °C",
           ylim=(0, 210), xlim=(0, q[-1] * 1e-3))
    ax.grid(color="0.9", lw=0.5)

    ax2 = ax.twinx()
    ax2.plot(q * 1e-3, x_cond, color="tab:blue", lw=1.5, label="water condensed")
    ax2.axhline(water, color="tab:blue", ls="--", lw=0.8)
    ax2.text(q[-1] * 1e-3, water, "all the water in the gas ", color="tab:blue", fontsize=8, ha="right",
             va="bottom")
    ax2.set(ylabel="water condensed / (mol per mol of flue gas)", ylim=(0, 0.125))
    ax2.tick_params(axis="y", colors="tab:blue")
    ax2.yaxis.label.set_color("tab:blue")

    lines = ax.get_lines()[:1] + ax2.get_lines()[:1]
    ax.legend(lines, [line.get_label() for line in lines], loc="center left")
    names = ", ".join(f"{name} {x:g}" for name, x in COMPOSITION.items())
    ax.set_title(f"Flue gas cooled at {P / 1e5:.5f} bar\n(mole fractions {names})", fontsize=11)
    fig.savefig(path, dpi=120)
    plt.close(fig)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("--out", default=".", help="directory the picture is written to (default: here)")
    args = parser.parse_args()
    os.makedirs(args.out, exist_ok=True)
    path = os.path.join(args.out, "flue_gas_cooling.png")
    draw(path)
    print(f"wrote {path}")


if __name__ == "__main__":
    main()
