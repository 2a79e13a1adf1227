"""Tests of the gas data converter and of the committed data/Ondrel.Dat.

Run by CTest as gasdata_converter; needs only the repository (no raw data).
"""

import copy
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


def committed_text():
    with open(os.path.join(REPO, make_gasdata.DATA_FILE), encoding="ascii", newline="") as f:
        return f.read()


def failures_of(rows):
    text = make_gasdata.format_file(rows)
    return make_gasdata.run_checks(rows, text, io.StringIO()).failures


class FixedColumnRead(unittest.TestCase):
    def test_field_without_point_has_implied_decimals(self):
        self.assertEqual(fixedcol.read_real("     12345", 3), Decimal("12.345"))
        self.assertEqual(fixedcol.read_real("  12345678", 8), Decimal("0.12345678"))

    def test_point_in_text_overrides_implied_decimals(self):
        self.assertEqual(fixedcol.read_real("   200.5  ", 3), Decimal("200.5"))

    def test_exponent_forms_read_alike(self):
        for text in ("1.5E+03", "1.5e+03", "1.5D+03", "1.5d3", "1.5+03", "1.5E3"):
            self.assertEqual(fixedcol.read_real(text.rjust(15), 8), Decimal(1500), text)
        # Implied decimals apply to the mantissa before the exponent.
        self.assertEqual(fixedcol.read_real("15+2".rjust(15), 1), Decimal(150))
        self.assertEqual(fixedcol.read_real("-2.5-02".rjust(15), 8), Decimal("-0.025"))

    def test_blanks_inside_are_ignored_and_blank_field_is_zero(self):
        self.assertEqual(fixedcol.read_real(" 1 2.5 E+0 1", 8), Decimal(125))
        self.assertEqual(fixedcol.read_real(" " * 15, 8), Decimal(0))
        self.assertEqual(fixedcol.read_int("  "), 0)
        self.assertEqual(fixedcol.read_int(" 7"), 7)

    def test_garbage_fields_fail(self):
        for text in ("abc", "1.2.3", "E+05", "1.0E", "--1", "0x10", "."):
            with self.assertRaises(fixedcol.FieldError, msg=text):
                fixedcol.read_real(text.rjust(15), 8)
        with self.assertRaises(fixedcol.FieldError):
            fixedcol.read_int("1.")

    def test_short_line_and_crlf_read_as_blank_padded(self):
        self.assertEqual(fixedcol.column("ab\r\n", 1, 5), "ab   ")
        self.assertEqual(fixedcol.column("abc", 5, 3), "   ")


class FixedColumnWrite(unittest.TestCase):
    def test_e_field_keeps_nine_digits_and_width(self):
        text = fixedcol.write_e(-2.98858938e4)
        self.assertEqual(text, "-2.98858938E+04")
        self.assertEqual(float(fixedcol.read_real(text, 8)), -2.98858938e4)

    def test_e_field_refuses_values_it_cannot_carry(self):
        with self.assertRaises(fixedcol.FieldError):
            fixedcol.write_e(-1.5e-100)          # three exponent digits: 16 columns
        with self.assertRaises(fixedcol.FieldError):
            fixedcol.write_e(1.0 / 3.0)          # not representable in nine digits

    def test_f_field_refuses_lost_digits_and_overflow(self):
        self.assertEqual(fixedcol.write_f(Decimal("0.01801528"), 12, 8), "  0.01801528")
        with self.assertRaises(fixedcol.FieldError):
            fixedcol.write_f(Decimal("0.018015281"), 12, 8)
        with self.assertRaises(fixedcol.FieldError):
            fixedcol.write_f(Decimal("12345678.5"), 10, 3)


class Polynomials(unittest.TestCase):
    def test_range_choice_at_the_split_and_fallback(self):
        high, low = [1.0] + [0.0] * 6, [2.0] + [0.0] * 6
        self.assertIs(nasa7.range_at([high, low], 1000.0), low)
        self.assertIs(nasa7.range_at([high, low], 1000.0001), high)
        self.assertIs(nasa7.range_at([[0.0] * 7, low], 3000.0), low)

    def test_enthalpy_and_entropy_are_integrals_of_cp(self):
        a = [3.5, 1e-3, -2e-7, 3e-11, -1e-15, -1000.0, 4.0]
        t, dt = 800.0, 1e-3
        self.assertAlmostEqual((nasa7.h(a, t + dt) - nasa7.h(a, t - dt)) / (2 * dt),
                               nasa7.cp(a, t), places=6)
        self.assertAlmostEqual((nasa7.s(a, t + dt) - nasa7.s(a, t - dt)) / (2 * dt),
                               nasa7.cp(a, t) / t, places=8)

    def test_fit_recovers_an_exact_polynomial_on_a_narrow_range(self):
        a = [0.37, 1.5e-2, -3.4e-5, 2.9e-8, 0.0, 0.0, 0.0]
        samples = [(t, nasa7.cp(a, t)) for t in range(200, 390)]
        fit = nasa7.fit_cp(samples, 4)
        for t in (200.0, 300.0, 388.0):
            self.assertAlmostEqual(nasa7.cp(fit, t), nasa7.cp(a, t), places=9)

    def test_pinned_fit_passes_through_the_pin(self):
        samples = [(t, 5.0 + math.sin(t / 100.0)) for t in range(200, 1001)]
        fit = nasa7.fit_cp(samples, 5, pin=(1000.0, 8.0))
        self.assertAlmostEqual(nasa7.cp(fit, 1000.0), 8.0, places=10)


class CommittedFile(unittest.TestCase):
    """The file in data/ as the library will load it."""

    @classmethod
    def setUpClass(cls):
        cls.text = committed_text()
        cls.rows = make_gasdata.rows_from_text(cls.text)

    def test_verify_mode_passes(self):
        out = io.StringIO()
        sys.stdout, saved = out, sys.stdout
        try:
            status = make_gasdata.main(["--verify", "--root", REPO])
        finally:
            sys.stdout = saved
        self.assertEqual(status, 0, out.getvalue()[-2000:])

    def test_fits_one_database_record(self):
        lines = self.text.split("\n")
        self.assertEqual(lines[-1], "")                      # ends with a newline
        self.assertLessEqual(len(lines) - 1, 255)
        self.assertEqual((len(lines) - 2) % 4, 0)
        self.assertTrue(all(len(l) <= 255 and "\r" not in l for l in lines))

    def test_water_rows_are_in_scan_order_and_the_if_row_copies_h2o(self):
        names = [r.name for r in self.rows]
        self.assertLess(names.index("H2O"), names.index("H2O(L)"))
        gas, copy_row = self.rows[names.index("H2O")], self.rows[names.index("H2O(IF)")]
        for field in ("elements", "tmin", "tmax", "mmol", "coef", "sigma", "eps"):
            self.assertEqual(getattr(gas, field), getattr(copy_row, field), field)

    def test_liquid_water_is_served_from_range_two(self):
        liquid = self.rows[[r.name for r in self.rows].index("H2O(L)")]
        self.assertEqual(liquid.coef[0], [0.0] * 7)
        # cp of liquid water near 298 K is about 75.3 J/(mol K) = 9.06 R.
        self.assertAlmostEqual(nasa7.cp(nasa7.range_at(liquid.coef, 1500.0), 298.15), 9.06, 1)

    def test_gas_values_are_physical_at_room_temperature(self):
        # cp/R at 298.15 K: monatomic 2.5, N2 3.50, CO2 4.47, H2O 4.04.
        expected = {"AR": 2.5, "HE": 2.5, "N2": 3.50, "CO2": 4.47, "H2O": 4.04}
        by_name = {r.name: r for r in self.rows}
        for name, cp in expected.items():
            got = nasa7.cp(nasa7.range_at(by_name[name].coef, 298.15), 298.15)
            self.assertAlmostEqual(got, cp, 2, name)


class ChecksCatchFaults(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.rows = make_gasdata.rows_from_text(committed_text())

    def mutated(self, target, **changes):
        rows = copy.deepcopy(self.rows)
        row = next(r for r in rows if r.name == target)
        for key, value in changes.items():
            setattr(row, key, value)
        return rows

    def test_committed_rows_pass(self):
        self.assertEqual(failures_of(self.rows), [])

    def test_wrong_molar_mass_fails(self):
        self.assertTrue(any("molar mass" in f for f in
                            failures_of(self.mutated("CO", mmol=Decimal("0.02901040")))))

    def test_cp_step_at_1000_k_fails(self):
        rows = self.mutated("N2")
        row = next(r for r in rows if r.name == "N2")
        row.coef[0][0] = fixedcol.round_e(row.coef[0][0] * 1.01)
        self.assertTrue(any("jumps" in f for f in failures_of(rows)))

    def test_condensed_row_with_lennard_jones_data_fails(self):
        self.assertTrue(failures_of(self.mutated("C(S)", sigma=Decimal("3.0"))))

    def test_gas_without_lennard_jones_data_fails(self):
        self.assertTrue(failures_of(self.mutated("NO2", eps=Decimal(0))))

    def test_long_or_lower_case_names_fail(self):
        self.assertTrue(failures_of(self.mutated("CL", name="Cl")))
        self.assertTrue(failures_of(self.mutated("CL", name="CHLORINE1")))

    def test_liquid_water_before_gas_water_fails(self):
        rows = copy.deepcopy(self.rows)
        liquid = next(r for r in rows if r.name == "H2O(L)")
        rows.remove(liquid)
        rows.insert(0, liquid)
        self.assertTrue(any("before" in f for f in failures_of(rows)))

    def test_if_row_differing_from_h2o_fails(self):
        self.assertTrue(failures_of(self.mutated("H2O(IF)", tmax=Decimal("5000.000"))))

    def test_readback_catches_a_shifted_column(self):
        text = make_gasdata.format_file(self.rows)
        lines = text.split("\n")
        lines[1] = " " + lines[1]              # name line shifted one column
        checks = make_gasdata.Checks()
        make_gasdata.check_readback(self.rows, "\n".join(lines), checks)
        self.assertTrue(checks.failures)

    def test_a_64th_row_fails(self):
        rows = copy.deepcopy(self.rows)
        extra = copy.deepcopy(rows[0])
        extra.name = "N2X"
        rows.append(extra)
        self.assertTrue(any("at most" in f for f in failures_of(rows)))


if __name__ == "__main__":
    unittest.main()
