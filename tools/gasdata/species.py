"""The rows of the gas data file: which raw record and which Lennard-Jones
entry each one comes from, and why.

Lennard-Jones sources (eps/k in K, sigma in Angstrom):
  gri     GRI-Mech 3.0 transport.dat (cantera/gri30_tran.dat)
  misc    Chemkin "miscellaneous" transport collection (cantera/misc_tran.dat)
  svehla  Svehla, NASA TR R-132 (1962), as reprinted by Poling, Prausnitz and
          O'Connell, 5th ed., appendix B (poling_svehla/PolingLJ.tsv), keyed
          "Formula|Name"
The library applies no dipole correction, so polar gases take the Svehla
values, which were fitted to viscosity data with the plain 12-6 potential.

Thermo: the record name in cantera/nasathermo.dat (NASA TM-4513, 1993), or a
refit named in REFITS.
"""

from collections import namedtuple

Species = namedtuple("Species", "name thermo lj_source lj_entry note")

# Gases, then the condensed rows. "H2O" must precede "H2O(L)": the loader
# takes the last "H2O" row before the first "H2O(L)" row as the water row.
SPECIES = [
    Species("N2", "N2", "gri", "N2", "GRI fits viscosity better than Svehla at 300-1000 K"),
    Species("O2", "O2", "gri", "O2", "GRI and Svehla agree"),
    Species("AR", "Ar", "gri", "AR", "GRI fits viscosity better than Svehla"),
    Species("CO2", "CO2", "gri", "CO2", "GRI fits viscosity better than Svehla"),
    Species("H2O", "H2O", "svehla", "H2O|Water",
            "polar: Svehla (no dipole term); GRI's Stockmayer values give +14 % viscosity"),
    Species("H2O(IF)", "H2O", "svehla", "H2O|Water", "copy of the H2O row"),
    Species("CO", "CO", "gri", "CO", "GRI fits viscosity better than Svehla"),
    Species("H2", "H2", "gri", "H2", "GRI fits viscosity better than Svehla"),
    Species("HE", "He", "svehla", "He|Helium", "Svehla closer at 1000 K than the Chemkin entry"),
    Species("NE", "Ne", "svehla", "Ne|Neon", "only source"),
    Species("KR", "Kr", "svehla", "Kr|Krypton", "only source"),
    Species("XE", "Xe", "svehla", "Xe|Xenon", "only source"),
    Species("CH4", "CH4", "gri", "CH4", "GRI and Svehla within 2 %"),
    Species("C2H6", "C2H6", "gri", "C2H6", "GRI fits viscosity better than Svehla"),
    Species("C3H8", "C3H8", "gri", "C3H8", "GRI closer than Svehla at 600 K"),
    Species("C4H10", "C4H10,n-butane", "misc", "n-C4H10",
            "n-butane (Svehla values); misc 'C4H10' is isobutane"),
    Species("I-C4H10", "C4H10,isobutane", "svehla", "C4H10|Isobutane", "isobutane, fuel and refinery gas"),
    Species("C5H12", "C5H12,n-pentane", "svehla", "C5H12|n-Pentane", "n-pentane, natural gas"),
    Species("C2H4", "C2H4", "gri", "C2H4", "GRI fits viscosity better than Svehla"),
    Species("C3H6", "C3H6,propylene", "svehla", "CH2CHCH3|Propylene",
            "propylene; GRI's C3H6 entry is a copy of C3H8"),
    Species("C4H8", "C4H8,1-butene", "misc", "n1-C4H8", "1-butene"),
    Species("C2H2", "C2H2,acetylene", "svehla", "C2H2|Acetylene", "Svehla closer than GRI at 300 and 1000 K"),
    Species("C6H6", "C6H6", "svehla", "C6H6|Benzene", "benzene (same values in GRI and misc)"),
    Species("CH3OH", "CH3OH", "gri", "CH3OH", "same values in all three sources"),
    Species("C2H5OH", "C2H5OH", "misc", "C2H5OH", "same values in Svehla"),
    Species("CH3OCH3", "CH3OCH3", "svehla", "CH3OCH3|Methyl ether", "dimethyl ether, fuel"),
    Species("CH2O", "HCHO,formaldehy", "gri", "CH2O", "formaldehyde; only source"),
    Species("NH3", "NH3", "svehla", "NH3|Ammonia", "polar: Svehla (no dipole term)"),
    Species("NO", "NO", "svehla", "NO|Nitric oxide", "Svehla closer than GRI at 300 and 1000 K"),
    Species("NO2", "NO2", "gri", "NO2", "only source; about +17 % viscosity"),
    Species("N2O", "N2O", "gri", "N2O", "same values in Svehla"),
    Species("HCN", "HCN", "gri", "HCN", "same values in Svehla"),
    Species("SO2", "SO2", "svehla", "SO2|Sulfur dioxide", "polar: Svehla (no dipole term)"),
    Species("SO3", "SO3", "misc", "SO3", "only source"),
    Species("H2S", "H2S", "misc", "H2S", "misc and Svehla nearly equal"),
    Species("COS", "COS", "svehla", "COS|Carbonyl sulfide", "only source"),
    Species("CS2", "CS2", "svehla", "CS2|Carbon disulfide", "only source"),
    Species("S2", "S2", "misc", "S2", "only source; Claus process gas"),
    Species("HCL", "HCL", "misc", "HCl", "same values in Svehla"),
    Species("CL2", "CL2", "svehla", "Cl2|Chlorine", "only source"),
    Species("HF", "HF", "misc", "HF", "same values in Svehla; about -20 % viscosity above 1000 K"),
    Species("F2", "F2", "svehla", "F2|Fluorine", "Svehla (viscosity fit) rather than the Chemkin estimate"),
    Species("SF6", "SF6", "svehla", "SF6|Sulfur hexafluoride", "only source; insulating gas"),
    Species("O3", "O3", "misc", "O3", "only source"),
    Species("H2O2", "H2O2", "svehla", "H2O2|Hydrogen peroxide",
            "Svehla; the Chemkin entries are copies of O2"),
    Species("OH", "OH", "gri", "OH", "only source (estimate)"),
    Species("H", "H", "gri", "H", "only source (estimate)"),
    Species("O", "O", "gri", "O", "only source (estimate)"),
    Species("N", "N", "gri", "N", "only source (estimate)"),
    Species("CH3", "CH3", "gri", "CH3", "only source (estimate)"),
    Species("HCO", "HCO", "gri", "HCO", "only source (estimate)"),
    Species("NH2", "NH2", "gri", "NH2", "only source (estimate)"),
    Species("SO", "SO", "misc", "SO", "only source (estimate)"),
    Species("CL", "CL", "misc", "CL", "only source (estimate)"),
    Species("H2O(L)", "H2O(L)", None, None, "liquid water, 273.15-600 K, range 2 only"),
    Species("C(S)", "C(gr)", None, None, "graphite"),
    Species("S(S)", "refit:S(S)", None, None, "rhombic + monoclinic sulfur, one refitted range"),
    Species("S(L)", "S(L)", None, None, "liquid sulfur"),
    Species("AL2O3(S)", "AL2O3(a)", None, None, "alpha alumina (corundum) up to the melting point"),
    Species("AL2O3(L)", "AL2O3(L)", None, None, "liquid alumina, constant cp (JANAF 1979)"),
    Species("SIO2(S)", "refit:SIO2(S)", None, None, "alpha + beta quartz: range 2 refitted, range 1 beta quartz"),
    Species("SIO2(L)", "SiO2(L)", None, None, "liquid silica, range 1 only"),
    Species("FE2O3(S)", "Fe2O3(s)", None, None, "hematite, one fit through the magnetic transition"),
]

# Names the table must carry.
REQUIRED = [
    "H2O", "H2O(L)", "H2O(IF)",
    "AL2O3(L)", "AL2O3(S)", "C(S)", "FE2O3(S)", "S(L)", "S(S)", "SIO2(L)", "SIO2(S)",
    "N2", "O2", "AR", "HE", "NE", "H2", "CO", "CO2", "CH4", "C2H6", "C3H8", "C4H10",
    "C2H4", "C2H2", "NH3", "NO", "NO2", "N2O", "SO2", "SO3", "H2S", "COS", "HCL",
    "HCN", "OH", "H", "O", "N",
]

# One database record holds 255 lines: a header and 63 blocks of four.
MAX_ROWS = 63

# Standard atomic weights (IUPAC, conventional values), g/mol.
ATOMIC_WEIGHT = {
    "H": 1.008, "HE": 4.002602, "C": 12.011, "N": 14.007, "O": 15.999,
    "F": 18.998403163, "NE": 20.1797, "AL": 26.9815385, "SI": 28.085,
    "S": 32.06, "CL": 35.45, "AR": 39.948, "FE": 55.845, "KR": 83.798,
    "XE": 131.293,
}

# Relative tolerance between the record's molar mass and the element sum;
# the 1993 records used atomic weights of their time (S 32.066, H 1.00794).
MOLAR_MASS_TOLERANCE = 3e-4

# Largest relative cp/R jump between the two ranges at 1000 K.
CP_JUMP_TOLERANCE = 0.005
