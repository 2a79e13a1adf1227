#!/usr/bin/env python3
"""Viscosity and thermal conductivity of air and of a flue gas at 1 bar,
from 300 K (27 C) to 2000 K (1727 C).

Air is N2 0.7808, O2 0.2095, AR 0.0093, CO2 0.0004; the flue gas N2 0.71,
CO2 0.13, H2O(IF) 0.12, O2 0.035, AR 0.005 (mole fractions). Its water
condenses below the dew point (about 50 C at 1 bar), so the flue gas is
drawn from its dew point up, where all of it is gas. Each curve is one
array call with the input pair (P, T).

    PYTHONPATH=<build>/python python3 transport.py [--out DIR]
"""
import argparse
import os

import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt  # noqa: E402
import numpy as np  # noqa: E402

import ondrel  # noqa: E402

AIR = {"N2": 0.7808, "O2": 0.2095, "AR": 0.0093, "CO2": 0.0004}
FLUE_GAS = {"N2": 0.71, "CO2": 0.13, "H2O(IF)": 0.12, "O2": 0.035, "AR": 0.005}
P = 1.0e5                 # Pa
ZERO_C = 273.15           # K
T_LOW, T_HIGH = 300.0, 2000.0


def transport(composition, t_low, n=400):
    """Temperatures (K), viscosity (Pa s) and conductivity (W/(m K)) from t_low to T_HIGH."""
    gas = ondrel.Mixture(composition)
    t = np.linspace(t_low, T_HIGH, n)
    r = gas.props("PT", P, t, ["eta", "lambda"], raise_on_error=True)
    return t, r["eta"], r["lambda"]


def draw(path):
    t_dew = ondrel.Mixture(FLUE_GAS).props("PT", P, T_HIGH, "T_dew")
    curves = [
        ("air", "tab:blue", transport(AIR, T_LOW)),
        (f"flue gas, from its dew point {t_dew - ZERO_C:.1f} °C up", "tab:red", transport(FLUE_GAS, t_dew)),
    ]
    fig, (ax_eta, ax_lam) = plt.subplots(1, 2, figsize=(11, 4.8), layout="constrained")
    for label, colour, (t, eta, lam) in curves:
        ax_eta.plot(t - ZERO_C, eta * 1e6, color=colour, lw=1.8, label=label)
        ax_lam.plot(t - ZERO_C, lam * 1e3, color=colour, lw=1.8, label=label)
    # The flue gas's conductivity steps where pure water would boil at the
    # gas's pressure, although its water is all vapour there: pointed out
    # rather than smoothed over.
    t_boil = ondrel.if97.from_px(P, 1.0, "T")
    lam_boil = curves[1][2][2][np.searchsorted(curves[1][2][0], t_boil)]
    ax_lam.annotate(f"step at {t_boil - ZERO_C:.1f} °C, where water\nboils at {P / 1e5:g} bar",
                    (t_boil - ZERO_C, lam_boil * 1e3), xytext=(250, 20), fontsize=8,
                    arrowprops=dict(arrowstyle="->", lw=0.6))
    ax_eta.set(ylabel="viscosity η / (µPa s)", title="Viscosity")
    ax_lam.set(ylabel="thermal conductivity λ / (mW/(m K))", title="Thermal conductivity")
    for ax in (ax_eta, ax_lam):
        ax.set(xlabel="temperature / °C", xlim=(T_LOW - ZERO_C, T_HIGH - ZERO_C), ylim=(0, None))
        ax.grid(color="0.9", lw=0.5)
        ax.legend(loc="lower right", fontsize=9)
    air = ", ".join(f"{k} {v:g}" for k, v in AIR.items())
    flue = ", ".join(f"{k} {v:g}" for k, v in FLUE_GAS.items())
    fig.suptitle(f"Air and flue gas at {P / 1e5:g} bar\nmole fractions: air {air}; flue gas {flue}", fontsize=10)
    fig.savefig(path, dpi=120)
    plt.close(fig)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("--out", default=".", help="directory the picture is written to (default: here)")
    args = parser.parse_args()
    os.makedirs(args.out, exist_ok=True)
    path = os.path.join(args.out, "transport.png")
    draw(path)
    print(f"wrote {path}")


if __name__ == "__main__":
    main()
