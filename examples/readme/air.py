# Enthalpy and entropy of dry air at 1.01325 bar and 25 C, from Python.
import ondrel

air = ondrel.Mixture({"N2": 0.7809, "O2": 0.2095, "AR": 0.0096})  # mole fractions
r = air.props("PT", 1.01325e5, 298.15, ["h", "s"])  # Pa, K -> J/kg, J/(kg K)
print(f"air at 1.01325 bar, 25 C: h = {r['h'] / 1e3:.4f} kJ/kg, s = {r['s'] / 1e3:.4f} kJ/(kg K)")
