#!/usr/bin/python3
"""Writes the gas data file data/Ondrel.Dat from the public raw data.

Thermo: NASA 7-coefficient records of McBride, Gordon and Reno (NASA TM-4513,
1993), file cantera/nasathermo.dat, with the entropy constants of the gases
moved from the records' 1 bar to the library's 101325 Pa. Lennard-Jones parameters: GRI-Mech 3.0,
the Chemkin miscellaneous transport collection and Svehla's table (see
species.py for the choice per row).

Usage:
  make_gasdata.py [--source DIR] [--root DIR]   write the file and its CSV
  make_gasdata.py --check [--source DIR]        regenerate in memory and
                                                compare with the committed files
  make_gasdata.py --verify [--root DIR]         check the committed file alone
                                                (no raw data needed)
  make_gasdata.py --provenance                  print the row table in Markdown

Every run checks the table and exits with status 1 when a check fails.
"""

import argparse
import csv
import io
import math
import os
import sys
from decimal import Decimal

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

import fixedcol  # noqa: E402
import nasa7  # noqa: E402
from species import (ATOMIC_WEIGHT, CP_JUMP_TOLERANCE, MAX_ROWS,  # noqa: E402
                     MOLAR_MASS_TOLERANCE, REQUIRED, SPECIES)

REPO = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
DEFAULT_SOURCE = os.path.join(os.path.dirname(REPO), "shared", "data", "thermo")
DATA_FILE = os.path.join("data", "Ondrel.Dat")
CSV_FILE = os.path.join("tests", "data", "gasdata", "ondrel_dat_rows.csv")

# One line, read and ignored by the loader; kept free of commas and slashes,
# which free-format input treats as separators.
HEADER = ("Ondrel gas data {n} components: NASA 7-coefficient polynomials (TM-4513) "
          "above and below 1000 K; gas entropies at 101325 Pa; molar mass kg per mol; "
          "Lennard-Jones sigma Angstrom and eps over k in K")

# The library refers gas entropies to 101325 Pa (s_0 subtracts ln(p / 101325 Pa)),
# the raw records to their standard pressure of 1 bar. An ideal gas at 101325 Pa
# has S/R lower by ln(101325 Pa / 1 bar) at every temperature, so every gas row
# has that constant taken off a7 (the entropy constant) of both ranges. Condensed
# rows have no pressure term and keep their constants.
P_RAW_STANDARD = 100000.0  # Pa
P_TABLE_REFERENCE = 101325.0  # Pa
ENTROPY_SHIFT = math.log(P_TABLE_REFERENCE / P_RAW_STANDARD)  # 0.0131633..., S/R

G_PER_KG = Decimal(1000)


class Row:
    """One component as written: texts of every field plus their values."""

    def __init__(self, name, source, elements, tmin, tmax, mmol, coef, sigma, eps):
        self.name = name
        self.source = source          # raw record name for columns 10-24
        self.elements = elements      # [(symbol, count)], at most four
        self.tmin, self.tmax = tmin, tmax      # Decimal, K
        self.mmol = mmol                       # Decimal, kg/mol
        self.coef = coef                       # [[7 floats] range 1, [7] range 2]
        self.sigma, self.eps = sigma, eps      # Decimal, Angstrom and K

    @property
    def condensed(self):
        return self.name.endswith("(S)") or self.name.endswith("(L)")


# --------------------------------------------------------------------------
# Raw data


def read_chemkin_transport(path):
    """name -> (eps/k, sigma) of a Chemkin TRANSPORT file."""
    table = {}
    with open(path, encoding="ascii") as f:
        for line in f:
            fields = line.split("!")[0].split()
            if len(fields) >= 4:
                table[fields[0]] = (Decimal(fields[2]), Decimal(fields[3]))
    return table


def read_svehla(path):
    """'Formula|Name' -> (eps/k, sigma) of the tab-separated Svehla table."""
    table = {}
    with open(path, encoding="utf-8") as f:
        for rec in csv.DictReader(f, delimiter="\t"):
            key = rec["Formula"] + "|" + rec["Name"]
            table[key] = (Decimal(rec["Stockmayer"]), Decimal(rec["molecular_diameter"]))
    return table


def load_sources(source):
    cantera = os.path.join(source, "cantera")
    thermo = nasa7.read_records(os.path.join(cantera, "nasathermo.dat"))
    lj = {
        "gri": read_chemkin_transport(os.path.join(cantera, "gri30_tran.dat")),
        "misc": read_chemkin_transport(os.path.join(cantera, "misc_tran.dat")),
        "svehla": read_svehla(os.path.join(source, "poling_svehla", "PolingLJ.tsv")),
    }
    return thermo, lj


def record(thermo, name):
    rec = thermo.get(name)
    if rec is None:
        raise SystemExit("thermo record %r missing or ambiguous" % name)
    return rec


def integer_elements(rec):
    out = []
    for symbol, count in rec.elements:
        if count != int(count):
            raise SystemExit("%s: fractional atom count" % rec.name)
        out.append((symbol, int(count)))
    return out


# --------------------------------------------------------------------------
# Refits of condensed species that the raw data splits into several phases


def sample(t_lo, t_hi, step, pieces):
    """(T, cp/R) samples from t_lo to t_hi; pieces = [(t_upper, coefficients)]
    in ascending order, each used up to and including its upper limit."""
    n = int(round((t_hi - t_lo) / step))
    out = []
    for k in range(n + 1):
        t = t_lo + (t_hi - t_lo) * k / n
        coef = next(c for t_up, c in pieces if t <= t_up + 1e-9)
        out.append((t, nasa7.cp(coef, t)))
    return out


def max_cp_error(coef, samples):
    return max(abs(nasa7.cp(coef, t) - y) / y for t, y in samples)


def refit_sulfur(thermo, report):
    """S(S): rhombic S(cr1) 200-368.3 K and monoclinic S(cr2) 368.3-388.36 K
    as one range-2 polynomial (four cp terms, like the raw records) up to
    the melting point where S(L) begins. H and S are kept equal to S(cr1) at
    298.15 K, the reference state of the element."""
    cr1, cr2 = record(thermo, "S(cr1)"), record(thermo, "S(cr2)")
    low1, low2 = cr1.coef[1], cr2.coef[1]
    samples = sample(200.0, 388.36, 0.5, [(368.3, low1), (388.36, low2)])
    a = [fixedcol.round_e(x) for x in nasa7.fit_cp(samples, 4)]
    t_ref = 298.15
    a6 = fixedcol.round_e(nasa7.h(low1, t_ref) - nasa7.h(a + [0.0, 0.0], t_ref))
    a7 = fixedcol.round_e(nasa7.s(low1, t_ref) - nasa7.s(a + [0.0, 0.0], t_ref))
    fit = a + [a6, a7]
    report.append("S(S) refit: max cp error %.3f %% over 200-388.36 K; at 388.36 K "
                  "H/R %+.2f K, S/R %+.5f against S(cr2); source transition "
                  "at 368.3 K: H/R %+.2f K"
                  % (100 * max_cp_error(fit, samples),
                     nasa7.h(fit, 388.36) - nasa7.h(low2, 388.36),
                     nasa7.s(fit, 388.36) - nasa7.s(low2, 388.36),
                     nasa7.h(low2, 368.3) - nasa7.h(low1, 368.3)))
    return Row("S(S)", "refit S(cr1+2)", integer_elements(cr1), Decimal("200.000"),
               Decimal("388.360"), Decimal(cr1.mmol_text) / G_PER_KG,
               [[0.0] * 7, fit], Decimal(0), Decimal(0))


def refit_quartz(thermo, report):
    """SIO2(S): alpha quartz SiO2(Lqz) up to 847 K and beta quartz SiO2(hqz)
    up to the melting point 1696 K as one row. Range 2 (200-1000 K) is one
    polynomial fitted to the cp of both phases, pinned to the cp of range 1
    at 1000 K; its H and S equal those of SiO2(Lqz) at 298.15 K, like every
    other row of the table. Range 1 (1000-1696 K) keeps the cp of SiO2(hqz);
    its a6 and a7 are moved so that H and S are continuous at 1000 K. The row
    has no latent heat of the alpha-beta transition."""
    lqz, hqz = record(thermo, "SiO2(Lqz)"), record(thermo, "SiO2(hqz)")
    t_split, t_ref = nasa7.T_SPLIT, 298.15
    high_cp = list(hqz.coef[0][0:5]) + [0.0, 0.0]
    samples = sample(200.0, t_split, 1.0, [(847.0, lqz.coef[1]), (t_split, hqz.coef[1])])
    a = nasa7.fit_cp(samples, 5, pin=(t_split, nasa7.cp(high_cp, t_split)))
    a = [fixedcol.round_e(x) for x in a] + [0.0, 0.0]
    a[5] = fixedcol.round_e(nasa7.h(lqz.coef[1], t_ref) - nasa7.h(a, t_ref))
    a[6] = fixedcol.round_e(nasa7.s(lqz.coef[1], t_ref) - nasa7.s(a, t_ref))
    high = list(high_cp)
    high[5] = fixedcol.round_e(nasa7.h(a, t_split) - nasa7.h(high_cp, t_split))
    high[6] = fixedcol.round_e(nasa7.s(a, t_split) - nasa7.s(high_cp, t_split))
    t_top = float(hqz.tmax_text)
    report.append("SIO2(S) refit: max cp error %.3f %% over 200-1000 K (at the alpha-beta "
                  "peak); at %.0f K H/R %+.2f K, S/R %+.5f against SiO2(hqz); source "
                  "transition at 847 K: H/R %+.2f K"
                  % (100 * max_cp_error(a, samples), t_top,
                     nasa7.h(high, t_top) - nasa7.h(hqz.coef[0], t_top),
                     nasa7.s(high, t_top) - nasa7.s(hqz.coef[0], t_top),
                     nasa7.h(hqz.coef[1], 847.0) - nasa7.h(lqz.coef[1], 847.0)))
    return Row("SIO2(S)", "refit SiO2(qz)", integer_elements(hqz), Decimal("200.000"),
               Decimal(hqz.tmax_text), Decimal(hqz.mmol_text) / G_PER_KG,
               [high, a], Decimal(0), Decimal(0))


REFITS = {"refit:S(S)": refit_sulfur, "refit:SIO2(S)": refit_quartz}


def to_reference_pressure(row):
    """Moves the entropy constants of a gas row from the raw 1 bar to 101325 Pa.
    "H2O(IF)" is a gas row like "H2O" and moves with it. A range given as
    absent (a1 = 0.0) stays all zeros; condensed rows are left as they are."""
    if row.condensed:
        return row
    for coef in row.coef:
        if coef[0] != 0.0:
            coef[6] = fixedcol.round_e(coef[6] - ENTROPY_SHIFT)
    return row


# --------------------------------------------------------------------------
# Building the table


def build_rows(thermo, lj, report):
    rows = []
    for sp in SPECIES:
        if sp.thermo in REFITS:
            rows.append(to_reference_pressure(REFITS[sp.thermo](thermo, report)))
            continue
        rec = record(thermo, sp.thermo)
        eps = sigma = Decimal(0)
        if sp.lj_source is not None:
            eps, sigma = lj[sp.lj_source][sp.lj_entry]
        rows.append(to_reference_pressure(Row(
            sp.name, rec.name, integer_elements(rec), Decimal(rec.tmin_text),
            Decimal(rec.tmax_text), Decimal(rec.mmol_text) / G_PER_KG,
            [list(rec.coef[0]), list(rec.coef[1])], sigma, eps)))
    return rows


# --------------------------------------------------------------------------
# Fixed-column text

NAME_WIDTH, SOURCE_WIDTH = 8, 16


def format_block(row):
    elements = ""
    for k in range(4):
        if k < len(row.elements):
            symbol, count = row.elements[k]
            elements += symbol.ljust(2) + fixedcol.write_i(count, 2) + " "
        else:
            elements += " " * 5
    phase = "S" if row.name.endswith("(S)") else "L" if row.name.endswith("(L)") else "G"
    line1 = (row.name.ljust(NAME_WIDTH) + (" " + row.source)[:SOURCE_WIDTH].ljust(SOURCE_WIDTH)
             + elements + phase + fixedcol.write_f(row.tmin, 10, 3)
             + fixedcol.write_f(row.tmax, 10, 3) + fixedcol.write_f(row.mmol, 12, 8))
    c = [fixedcol.write_e(x) for x in row.coef[0] + row.coef[1]]
    return [line1, "".join(c[0:5]), "".join(c[5:10]),
            "".join(c[10:14]) + fixedcol.write_f(row.sigma, 10, 5)
            + fixedcol.write_f(row.eps, 10, 5)]


def format_file(rows):
    lines = [HEADER.format(n=len(rows))]
    for row in rows:
        lines += format_block(row)
    return "\n".join(lines) + "\n"


def parse_block(lines):
    """Fields of one block read back with the loader's column layout."""
    col = fixedcol.column
    l1 = lines[0]
    elements = []
    for k in range(4):
        start = 25 + 5 * k
        elements.append((col(l1, start, 2), fixedcol.read_int(col(l1, start + 2, 2))))
    coef = []
    for line, count in ((lines[1], 5), (lines[2], 5), (lines[3], 4)):
        coef += [fixedcol.read_real(col(line, 1 + 15 * k, 15), 8) for k in range(count)]
    return {
        "name": col(l1, 1, 8),
        "elements": elements,
        "tmin": fixedcol.read_real(col(l1, 46, 10), 3),
        "tmax": fixedcol.read_real(col(l1, 56, 10), 3),
        "mmol": fixedcol.read_real(col(l1, 66, 12), 8),
        "coef": coef,
        "sigma": fixedcol.read_real(col(lines[3], 61, 10), 5),
        "eps": fixedcol.read_real(col(lines[3], 71, 10), 5),
    }


def field_texts(lines):
    """The raw texts of every numeric field of a block, blanks stripped."""
    col = fixedcol.column
    l1 = lines[0]
    coef = []
    for line, count in ((lines[1], 5), (lines[2], 5), (lines[3], 4)):
        coef += [col(line, 1 + 15 * k, 15).strip() for k in range(count)]
    return ([col(l1, 46, 10).strip(), col(l1, 56, 10).strip(), col(l1, 66, 12).strip()]
            + coef + [col(lines[3], 61, 10).strip(), col(lines[3], 71, 10).strip()])


CSV_COLUMNS = (["row", "name"]
               + [c % k for k in range(1, 5) for c in ("element%d", "count%d")]
               + ["tmin_K", "tmax_K", "mmol_kg_per_mol"]
               + ["r1_a%d" % k for k in range(1, 8)] + ["r2_a%d" % k for k in range(1, 8)]
               + ["sigma_angstrom", "eps_over_k_K"])


def format_csv(text):
    """One CSV line per row with the exact decimal text of every field."""
    lines = text.splitlines()
    out = io.StringIO()
    out.write("# Every field of data/Ondrel.Dat as written by tools/gasdata/make_gasdata.py "
              "(NASA TM-4513 polynomials; Lennard-Jones data of GRI-Mech 3.0, "
              "Chemkin misc and Svehla); range 1 above 1000 K, range 2 at and below\n")
    out.write(",".join(CSV_COLUMNS) + "\n")
    for i in range((len(lines) - 1) // 4):
        block = lines[1 + 4 * i:5 + 4 * i]
        fields = parse_block(block)
        cells = [str(i + 1), fields["name"].rstrip()]
        for symbol, count in fields["elements"]:
            cells += [symbol.strip(), str(count)]
        cells += field_texts(block)
        out.write(",".join(cells) + "\n")
    return out.getvalue()


# --------------------------------------------------------------------------
# Checks


class Checks:
    def __init__(self):
        self.failures = []
        self.notes = []

    def fail(self, message):
        self.failures.append(message)

    def note(self, message):
        self.notes.append(message)


def check_names(rows, checks):
    names = [r.name for r in rows]
    if len(rows) > MAX_ROWS:
        checks.fail("%d rows, at most %d fit one database record" % (len(rows), MAX_ROWS))
    for name in names:
        if len(name) > NAME_WIDTH or name != name.upper() or " " in name:
            checks.fail("bad name %r" % name)
        if names.count(name) > 1:
            checks.fail("duplicate name %r" % name)
    for name in REQUIRED:
        if name not in names:
            checks.fail("required component %s missing" % name)
    if "H2O" in names and "H2O(L)" in names and names.index("H2O") > names.index("H2O(L)"):
        checks.fail("H2O must come before H2O(L)")


def check_water_copy(rows, checks):
    by_name = {r.name: r for r in rows}
    gas, copy = by_name.get("H2O"), by_name.get("H2O(IF)")
    if gas is None or copy is None:
        return
    fields = ("elements", "tmin", "tmax", "mmol", "coef", "sigma", "eps")
    for f in fields:
        if getattr(gas, f) != getattr(copy, f):
            checks.fail("H2O(IF) differs from H2O in %s" % f)


def check_row(row, checks):
    if not row.tmin < row.tmax:
        checks.fail("%s: tmin %s not below tmax %s" % (row.name, row.tmin, row.tmax))
    if not 1 <= len(row.elements) <= 4:
        checks.fail("%s: %d elements" % (row.name, len(row.elements)))
    mass = sum(ATOMIC_WEIGHT[s] * n for s, n in row.elements) / 1000.0
    dev = (float(row.mmol) - mass) / mass
    if abs(dev) > MOLAR_MASS_TOLERANCE:
        checks.fail("%s: molar mass %s kg/mol, elements give %.8f" % (row.name, row.mmol, mass))
    has = [r[0] != 0.0 for r in row.coef]
    if not any(has):
        checks.fail("%s: no coefficients" % row.name)
    for k in (0, 1):
        if not has[k] and any(x != 0.0 for x in row.coef[k]):
            checks.fail("%s: range %d has a1 = 0 but other coefficients" % (row.name, k + 1))
    if row.condensed and (row.sigma != 0 or row.eps != 0):
        checks.fail("%s: condensed species with Lennard-Jones data" % row.name)
    if not row.condensed and not (row.sigma > 0 and row.eps > 0):
        checks.fail("%s: gas without Lennard-Jones data" % row.name)
    return dev


def continuity(row):
    """(cp jump relative, H/R jump K, S/R jump) of range 1 against range 2 at
    1000 K, or None for a single-range row."""
    high, low = row.coef
    if high[0] == 0.0 or low[0] == 0.0:
        return None
    t = nasa7.T_SPLIT
    cp_low = nasa7.cp(low, t)
    return ((nasa7.cp(high, t) - cp_low) / cp_low,
            nasa7.h(high, t) - nasa7.h(low, t), nasa7.s(high, t) - nasa7.s(low, t))


def check_readback(rows, text, checks):
    lines = text.splitlines()
    if (len(lines) - 1) // 4 != len(rows) or (len(lines) - 1) % 4 != 0:
        checks.fail("file has %d lines for %d rows" % (len(lines), len(rows)))
        return
    for i, row in enumerate(rows):
        try:
            got = parse_block(lines[1 + 4 * i:5 + 4 * i])
        except fixedcol.FieldError as err:
            checks.fail("%s: read fault: %s" % (row.name, err))
            continue
        want_elements = [(s.ljust(2), n) for s, n in row.elements]
        want_elements += [("  ", 0)] * (4 - len(want_elements))
        want = {
            "name": row.name.ljust(NAME_WIDTH), "elements": want_elements,
            "tmin": row.tmin, "tmax": row.tmax, "mmol": row.mmol,
            "coef": [Decimal(x) for x in row.coef[0] + row.coef[1]],
            "sigma": row.sigma, "eps": row.eps,
        }
        for key in want:
            a, b = got[key], want[key]
            if key == "coef":
                # Doubles: the field must read as the very same double.
                same = [float(x) for x in a] == [float(x) for x in b]
            else:
                same = a == b
            if not same:
                checks.fail("%s: field %s reads back as %r, wrote %r" % (row.name, key, a, b))


def run_checks(rows, text, out):
    checks = Checks()
    check_names(rows, checks)
    check_water_copy(rows, checks)
    out.write("%-9s %-18s %9s %9s %11s %9s %10s %9s\n" % (
        "name", "source", "M dev %", "cp jump %", "H/R jump K", "S/R jump", "sigma A", "eps/k K"))
    for row in rows:
        dev = check_row(row, checks)
        jumps = continuity(row)
        if jumps is None:
            cols = "%9s %11s %9s" % ("single", "-", "-")
        else:
            cols = "%9.4f %11.3f %9.5f" % (100 * jumps[0], jumps[1], jumps[2])
            if abs(jumps[0]) > CP_JUMP_TOLERANCE:
                checks.fail("%s: cp/R jumps %.3f %% at 1000 K" % (row.name, 100 * jumps[0]))
        out.write("%-9s %-18s %9.4f %s %10s %9s\n" % (
            row.name, row.source, 100 * dev, cols, row.sigma, row.eps))
    check_readback(rows, text, checks)
    return checks


# --------------------------------------------------------------------------
# Rows back from a written file (for --verify)


def rows_from_text(text):
    lines = text.splitlines()
    rows = []
    for i in range((len(lines) - 1) // 4):
        block = lines[1 + 4 * i:5 + 4 * i]
        f = parse_block(block)
        elements = [(s.strip(), n) for s, n in f["elements"] if s.strip()]
        coef = [float(x) for x in f["coef"]]
        rows.append(Row(f["name"].rstrip(), block[0][8:24].strip(), elements, f["tmin"],
                        f["tmax"], f["mmol"], [coef[0:7], coef[7:14]], f["sigma"], f["eps"]))
    return rows


def provenance(rows, thermo_notes):
    out = ["| # | name | thermo record (nasathermo.dat) | T range K | LJ source: entry | eps/k K | sigma A | note |",
           "|---|---|---|---|---|---|---|---|"]
    for i, (row, sp) in enumerate(zip(rows, SPECIES)):
        if sp.lj_source is None:
            lj = "-"
        else:
            entry = sp.lj_entry.split("|")
            lj = "%s `%s`" % (sp.lj_source, entry[0])
            if len(entry) > 1:
                lj += " (%s)" % entry[1]
        thermo = sp.thermo if not sp.thermo.startswith("refit:") else "refit (see below)"
        out.append("| %d | `%s` | `%s` | %s-%s | %s | %s | %s | %s |" % (
            i + 1, row.name, thermo, row.tmin, row.tmax, lj, row.eps, row.sigma, sp.note))
    return "\n".join(out + [""] + thermo_notes) + "\n"


def main(argv=None):
    ap = argparse.ArgumentParser(description=__doc__,
                                 formatter_class=argparse.RawDescriptionHelpFormatter)
    ap.add_argument("--source", default=DEFAULT_SOURCE, help="raw data directory")
    ap.add_argument("--root", default=REPO, help="where data/ and tests/ are")
    mode = ap.add_mutually_exclusive_group()
    mode.add_argument("--check", action="store_true")
    mode.add_argument("--verify", action="store_true")
    mode.add_argument("--provenance", action="store_true")
    args = ap.parse_args(argv)
    out = sys.stdout
    data_path = os.path.join(args.root, DATA_FILE)
    csv_path = os.path.join(args.root, CSV_FILE)

    if args.verify:
        with open(data_path, encoding="ascii", newline="") as f:
            text = f.read()
        rows = rows_from_text(text)
        checks = run_checks(rows, text, out)
        with open(csv_path, encoding="ascii", newline="") as f:
            if f.read() != format_csv(text):
                checks.fail("%s does not match %s" % (CSV_FILE, DATA_FILE))
        if format_file(rows) != text:
            checks.fail("%s is not in the canonical layout" % DATA_FILE)
    else:
        thermo, lj = load_sources(args.source)
        report = []
        rows = build_rows(thermo, lj, report)
        if args.provenance:
            out.write(provenance(rows, report))
            return 0
        text = format_file(rows)
        checks = run_checks(rows, text, out)
        for line in report:
            out.write(line + "\n")
        if args.check:
            for path, want in ((data_path, text), (csv_path, format_csv(text))):
                with open(path, encoding="ascii", newline="") as f:
                    if f.read() != want:
                        checks.fail("%s differs from a fresh conversion" % path)
        elif not checks.failures:
            os.makedirs(os.path.dirname(csv_path), exist_ok=True)
            with open(data_path, "w", encoding="ascii", newline="\n") as f:
                f.write(text)
            with open(csv_path, "w", encoding="ascii", newline="\n") as f:
                f.write(format_csv(text))
            out.write("wrote %s and %s (%d rows)\n" % (DATA_FILE, CSV_FILE, len(rows)))

    for message in checks.failures:
        out.write("FAILED: %s\n" % message)
    out.write("%d rows, %d checks failed\n" % (len(rows), len(checks.failures)))
    return 1 if checks.failures else 0


if __name__ == "__main__":
    sys.exit(main())
