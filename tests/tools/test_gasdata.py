"""Tests of the gas data converter and of the committed data/Ondrel.Dat.

Run by CTest as gasdata_converter; needs only the repository (no raw data).
"""

import copy
import csv
import io
import math
import os
import sys
import unittest
from decimal import Decimal

REPO = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
sys.path.insert(0, os.path.join(REPO, "tools", "gasdata"))

import fixedcol  # noqa: E402
import make_gasdata  # noqa: E402
import nasa7  # noqa: E402

with open(os.path.join(REPO, make_gasdata.DATA_FILE), encoding="ascii", newline="") as f:
    COMMITTED = f.read()
ROWS = make_gasdata.rows_from_text(COMMITTED)


def failures_of(rows):
    return make_gasdata.run_checks(rows, make_gasdata.format_file(rows), io.StringIO()).failures


class FixedColumns(unittest.TestCase):
    def test_numbers_read_with_implied_decimals_exponent_forms_and_blanks(self):
        # (field text, implied decimals, value): a point in the text overrides
        # the implied decimals, which apply to the mantissa before an exponent.
        cases = [("     12345", 3, "12.345"), ("  12345678", 8, "0.12345678"), ("   200.5  ", 3, "200.5"),
                 ("15+2", 1, "150"), ("-2.5-02", 8, "-0.025"), (" 1 2.5 E+0 1", 8, "125"), ("", 8, "0")]
        cases += [(t, 8, "1500") for t in ("1.5E+03", "1.5e+03", "1.5D+03", "1.5d3", "1.5+03", "1.5E3")]
        for text, d, value in cases:
            self.assertEqual(fixedcol.read_real(text.rjust(15), d), Decimal(value), text)
        self.assertEqual((fixedcol.read_int("  "), fixedcol.read_int(" 7")), (0, 7))

    def test_garbage_fields_fail(self):
        for text in ("abc", "1.2.3", "E+05", "1.0E", "--1", "0x10", "."):
            with self.assertRaises(fixedcol.FieldError, msg=text):
                fixedcol.read_real(text.rjust(15), 8)
        with self.assertRaises(fixedcol.FieldError):
            fixedcol.read_int("1.")

    def test_short_line_and_crlf_read_as_blank_padded(self):
        self.assertEqual(fixedcol.column("ab\r\n", 1, 5), "ab   ")
        self.assertEqual(fixedcol.column("abc", 5, 3), "   ")

    def test_writers_keep_the_digits_and_refuse_values_they_cannot_carry(self):
        self.assertEqual(fixedcol.write_e(-2.98858938e4), "-2.98858938E+04")
        self.assertEqual(fixedcol.write_f(Decimal("0.01801528"), 12, 8), "  0.01801528")
        # Three exponent digits; not nine digits; a lost digit; overflow.
        for write in (lambda: fixedcol.write_e(-1.5e-100), lambda: fixedcol.write_e(1.0 / 3.0),
                      lambda: fixedcol.write_f(Decimal("0.018015281"), 12, 8),
                      lambda: fixedcol.write_f(Decimal("12345678.5"), 10, 3)):
            with self.assertRaises(fixedcol.FieldError):
                write()


class Polynomials(unittest.TestCase):
    def test_range_choice_at_the_split_and_fallback(self):
        high, low = [1.0] + [0.0] * 6, [2.0] + [0.0] * 6
        self.assertIs(nasa7.range_at([high, low], 1000.0), low)
        self.assertIs(nasa7.range_at([high, low], 1000.0001), high)
        self.assertIs(nasa7.range_at([[0.0] * 7, low], 3000.0), low)

    def test_enthalpy_and_entropy_are_integrals_of_cp(self):
        a, t, dt = [3.5, 1e-3, -2e-7, 3e-11, -1e-15, -1000.0, 4.0], 800.0, 1e-3
        self.assertAlmostEqual((nasa7.h(a, t + dt) - nasa7.h(a, t - dt)) / (2 * dt), nasa7.cp(a, t), places=6)
        self.assertAlmostEqual((nasa7.s(a, t + dt) - nasa7.s(a, t - dt)) / (2 * dt), nasa7.cp(a, t) / t, places=8)

    def test_fits_recover_an_exact_polynomial_and_pass_through_the_pin(self):
        a = [0.37, 1.5e-2, -3.4e-5, 2.9e-8, 0.0, 0.0, 0.0]
        fit = nasa7.fit_cp([(t, nasa7.cp(a, t)) for t in range(200, 390)], 4)
        for t in (200.0, 300.0, 388.0):
            self.assertAlmostEqual(nasa7.cp(fit, t), nasa7.cp(a, t), places=9)
        samples = [(t, 5.0 + math.sin(t / 100.0)) for t in range(200, 1001)]
        self.assertAlmostEqual(nasa7.cp(nasa7.fit_cp(samples, 5, pin=(1000.0, 8.0)), 1000.0), 8.0, places=10)


class CommittedFile(unittest.TestCase):
    def test_verify_mode_passes(self):
        out = io.StringIO()
        sys.stdout, saved = out, sys.stdout
        try:
            status = make_gasdata.main(["--verify", "--root", REPO])
        finally:
            sys.stdout = saved
        self.assertEqual(status, 0, out.getvalue()[-2000:])

    def test_fits_one_database_record(self):
        lines = COMMITTED.split("\n")
        self.assertEqual((lines[-1], (len(lines) - 2) % 4), ("", 0))  # ends with a newline; blocks of 4
        self.assertLessEqual(len(lines) - 1, 255)
        self.assertTrue(all(len(l) <= 255 and "\r" not in l for l in lines))

    def test_values_are_physical_at_room_temperature(self):
        # cp/R at 298.15 K: monatomic 2.5, N2 3.50, CO2 4.47, H2O 4.04; liquid
        # water 75.3 J/(mol K) = 9.06 R, served from range two.
        by_name = {r.name: r for r in ROWS}
        self.assertEqual(by_name["H2O(L)"].coef[0], [0.0] * 7)
        for name, cp, places in [("AR", 2.5, 2), ("HE", 2.5, 2), ("N2", 3.50, 2), ("CO2", 4.47, 2),
                                 ("H2O", 4.04, 2), ("H2O(L)", 9.06, 1)]:
            self.assertAlmostEqual(nasa7.cp(nasa7.range_at(by_name[name].coef, 298.15), 298.15), cp, places, name)


def read_reference_csv(name):
    path = os.path.join(REPO, "tests", "data", "gasdata", name)
    with open(path, encoding="ascii") as f:
        return list(csv.DictReader(line for line in f if not line.startswith("#")))


class EntropyReference(unittest.TestCase):
    """Gas entropies are referred to 101325 Pa, the raw records to 1 bar."""

    R_TABLES = 8.31451  # J/(mol K), the gas constant of the tables and of the raw records
    T = 298.15

    def test_standard_entropies_at_298_k(self):
        # S/R of the committed rows at 101325 Pa (s_0 has no pressure term
        # there) against the tabulated S(1 bar) moved to 101325 Pa. Compared
        # as S/R: the library's shortened R = 8.3143 would scale every S by
        # 2.5e-5 (0.005 J/(mol K) here), which is the model's choice, not the
        # data's. Tolerance: 0.01 J/(mol K) or the table's uncertainty if larger.
        by_name = {r.name: r for r in ROWS}
        refs = read_reference_csv("standard_entropy_298.csv")
        self.assertGreaterEqual({r["name"] for r in refs},
                                {"N2", "O2", "AR", "CO2", "H2O", "CO", "H2", "CH4"})
        shift = math.log(101325.0 / 100000.0)
        for ref in refs:
            with self.subTest(ref["name"]):
                row = by_name[ref["name"]]
                self.assertEqual(row.condensed, ref["phase"] == "C")
                s_row = nasa7.s(nasa7.range_at(row.coef, self.T), self.T)
                s_1bar = float(ref["S_J_per_mol_K"]) / self.R_TABLES
                s_ref = s_1bar - (0.0 if row.condensed else shift)
                tol = max(0.01, float(ref["uncertainty_J_per_mol_K"] or 0.0))
                self.assertLess(abs(s_row - s_ref) * self.R_TABLES, tol,
                                "%.4f J/(mol K) from the table" % ((s_row - s_ref) * self.R_TABLES))
                if not row.condensed:
                    # The 1-bar figure itself must miss: the check sees the shift.
                    self.assertGreater(abs(s_row - s_1bar) * self.R_TABLES, tol)

    def test_converter_moves_gas_rows_only(self):
        self.assertEqual(make_gasdata.ENTROPY_SHIFT, math.log(1.01325))
        self.assertAlmostEqual(make_gasdata.ENTROPY_SHIFT, 0.013162987, places=9)

        def row(name, high, low):
            return make_gasdata.Row(name, "", [("C", 1)], Decimal(200), Decimal(6000), Decimal("0.012"),
                                    [high, low], Decimal(0), Decimal(0))
        high = [3.0, 1e-3, 0.0, 0.0, 0.0, -900.0, 5.12345678]
        low = [3.5, -2e-3, 0.0, 0.0, 0.0, -1000.0, -0.849032208]
        for name in ("CO", "H2O(IF)"):
            gas = make_gasdata.to_reference_pressure(row(name, list(high), list(low)))
            self.assertEqual(gas.coef[0], high[:6] + [5.11029379])   # rounded to nine digits, as written
            self.assertEqual(gas.coef[1], low[:6] + [-0.862195195])
        # A range given as absent stays all zeros.
        single = make_gasdata.to_reference_pressure(row("CO", [0.0] * 7, list(low)))
        self.assertEqual(single.coef, [[0.0] * 7, low[:6] + [-0.862195195]])
        for name in ("C(S)", "H2O(L)", "SIO2(L)"):
            self.assertEqual(make_gasdata.to_reference_pressure(row(name, list(high), list(low))).coef,
                             [high, low])


def mutated(target, **changes):
    rows = copy.deepcopy(ROWS)
    row = next(r for r in rows if r.name == target)
    for key, value in changes.items():
        setattr(row, key, value)
    return rows, row


class ChecksCatchFaults(unittest.TestCase):
    def test_altered_tables_fail(self):
        n2_rows, n2 = mutated("N2")
        n2.coef[0][0] = fixedcol.round_e(n2.coef[0][0] * 1.01)
        water_first = copy.deepcopy(ROWS)
        water_first.insert(0, water_first.pop([r.name for r in ROWS].index("H2O(L)")))
        extra = copy.deepcopy(ROWS) + [mutated(ROWS[0].name, name="N2X")[1]]
        # (what was altered, rows, text expected in a failure)
        cases = [("molar mass", mutated("CO", mmol=Decimal("0.02901040"))[0], "molar mass"),
                 ("cp step at 1000 K", n2_rows, "jumps"),
                 ("condensed with LJ", mutated("C(S)", sigma=Decimal("3.0"))[0], "Lennard-Jones"),
                 ("gas without LJ", mutated("NO2", eps=Decimal(0))[0], "Lennard-Jones"),
                 ("lower case", mutated("CL", name="Cl")[0], "bad name"),
                 ("long name", mutated("CL", name="CHLORINE1")[0], "bad name"),
                 ("water order", water_first, "before"),
                 ("H2O(IF) copy", mutated("H2O(IF)", tmax=Decimal("5000.000"))[0], "H2O(IF)"),
                 ("64 rows", extra, "at most")]
        self.assertEqual(failures_of(ROWS), [])
        for what, rows, fragment in cases:
            self.assertTrue(any(fragment in f for f in failures_of(rows)), what)

    def test_readback_catches_a_shifted_column(self):
        lines = make_gasdata.format_file(ROWS).split("\n")
        lines[1] = " " + lines[1]  # name line shifted one column
        checks = make_gasdata.Checks()
        make_gasdata.check_readback(ROWS, "\n".join(lines), checks)
        self.assertTrue(checks.failures)


if __name__ == "__main__":
    unittest.main()
