"""Water and steam from Python: IF97 and IFC-67 give the bits of the C
interface; IFC-67's messages become warnings and never reach the output."""

import warnings

import numpy as np
import pytest

import ondrel
from conftest import same_bits

IF97_FIELDS = {"P": "p", "T": "T", "v": "v", "d": "rho", "h": "h", "s": "s", "u": "u", "cp": "cp", "cv": "cv",
               "w": "w", "alpha": "alpha", "kappa_T": "kappa", "x": "x", "region": "region"}


def if97_states():
    """(p, T) across regions 1, 2, 3 and 5, with a few outside the range."""
    p = np.array([0.01e5, 1.0e5, 30.0e5, 165.0e5, 250.0e5, 500.0e5, 1000.0e5])
    T = np.array([275.0, 373.0, 500.0, 640.0, 660.0, 900.0, 1500.0, 2300.0])
    return np.repeat(p, T.size), np.tile(T, p.size)


class TestIf97:
    def test_states_from_p_and_T_equal_the_c_interface(self, clib):
        p, T = if97_states()
        r = ondrel.if97.props("PT", p, T, list(IF97_FIELDS))
        for i in range(p.size):
            status, st = clib.if97("from_pT", p[i], T[i])
            if status != 0:
                assert r["status"][i] == status and np.isnan(r["h"][i])
                continue
            assert r["status"][i] == 0
            for name, field in IF97_FIELDS.items():
                assert same_bits(r[name][i], getattr(st, field)), (name, p[i], T[i])

    @pytest.mark.parametrize("pair, function, names", [("Ph", "from_ph", "ph"), ("Ps", "from_ps", "ps"),
                                                        ("hs", "from_hs", "hs"), ("Tv", "from_Tv", "Tv")])
    def test_inverse_pairs_equal_the_c_interface(self, clib, pair, function, names):
        p, T = if97_states()
        ok = T < 1073.15
        given = ondrel.if97.props("PT", p[ok], T[ok], ["P" if c == "p" else c for c in names])
        a, b = (given["P" if c == "p" else c] for c in names)
        r = ondrel.if97.props(pair, a, b, ["T", "P", "x", "h"])
        for i in range(a.size):
            status, st = clib.if97(function, a[i], b[i])
            assert r["status"][i] == status
            if status == 0:
                assert same_bits(r["T"][i], st.T) and same_bits(r["P"][i], st.p) and same_bits(r["x"][i], st.x)

    def test_typed_calls_and_state(self):
        assert ondrel.if97.from_ph(1.0e6, 2.8e6, "T") == ondrel.if97.props("Ph", 1.0e6, 2.8e6, "T")
        assert {f"from_{'p' if a == 'P' else a}{b}" for a, b in ondrel.if97.PAIRS} <= set(dir(ondrel.if97))
        wet = ondrel.if97.state(P=1.0e5, x=0.5)
        assert wet["region"] == 4 and 372.7 < wet["T"] < 372.8
        assert ondrel.if97.state(x=0.5, P=1.0e5) == wet

    def test_wet_state_has_no_heat_capacity(self):
        with pytest.raises(ondrel.OndrelError) as e:
            ondrel.if97.props("Px", 1.0e5, 0.5, ["T", "cp"])
        assert e.value.status == ondrel.Status.not_available
        r = ondrel.if97.props("Px", 1.0e5, [0.0, 0.5, 1.0], ["T", "eta"])
        assert list(r["status"]) == [0, ondrel.Status.not_available, 0] and np.isnan(r["T"][1])

    def test_transport_properties(self):
        # IAPWS 2008 and 2011 check values: 298.15 K, 998 kg/m3 (approximately the state at 1 bar).
        r = ondrel.if97.props("PT", 1.0e5, 298.15, ["eta", "lambda"])
        assert r["eta"] == pytest.approx(8.9e-4, rel=1e-2) and r["lambda"] == pytest.approx(0.607, rel=1e-2)

    def test_surface_tension(self):
        assert ondrel.if97.surface_tension(373.15) == pytest.approx(0.05891, rel=1e-3)
        s = ondrel.if97.surface_tension(np.array([[300.0, 647.096], [700.0, np.nan]]))
        assert s.shape == (2, 2) and s[0, 1] == 0.0 and np.isnan(s[1]).all()
        with pytest.raises(ondrel.OndrelError) as e:
            ondrel.if97.surface_tension(700.0)
        assert e.value.status == ondrel.Status.outside_data_range
        with pytest.raises(ondrel.OndrelError):
            ondrel.if97.surface_tension([300.0, 700.0], raise_on_error=True)

    @pytest.mark.parametrize("p, T, status", [(np.nan, 300.0, "invalid_input"), (0.0, 300.0, "non_positive_input"),
                                              (1.0e5, 3000.0, "outside_data_range")])
    def test_faults(self, p, T, status):
        with pytest.raises(ondrel.OndrelError) as e:
            ondrel.if97.props("PT", p, T, "h")
        assert e.value.status == ondrel.Status[status]

    def test_unknown_names(self):
        with pytest.raises(ondrel.OndrelError, match="kappa_T"):
            ondrel.if97.props("PT", 1.0e5, 300.0, "kappa")
        with pytest.raises(ondrel.OndrelError):
            ondrel.if97.props("PH", 1.0e5, 300.0, "T")

    def test_thread_count_does_not_change_bits(self):
        p = np.geomspace(1.0e3, 1.0e8, 4000)
        h = np.linspace(1.0e5, 4.0e6, p.size)
        one = ondrel.if97.props("Ph", p, h, ["T", "x"], threads=1)
        two = ondrel.if97.props("Ph", p, h, ["T", "x"], threads=2)
        assert same_bits(one["T"], two["T"]) and same_bits(one["status"], two["status"])


class TestIfc67:
    @pytest.mark.parametrize("pair, function", [("PT", "from_pT"), ("Ph", "from_ph"), ("hs", "from_hs")])
    def test_states_equal_the_c_interface(self, clib, pair, function):
        p = np.array([0.05e5, 1.0e5, 40.0e5, 180.0e5])
        T = np.array([300.0, 420.0, 600.0, 800.0])
        given = ondrel.ifc67.props("PT", np.repeat(p, 4), np.tile(T, 4), ["P", "T", "h", "s"])
        a, b = given[pair[0]], given[pair[1]]
        with warnings.catch_warnings():
            warnings.simplefilter("ignore", ondrel.ifc67.IFC67Warning)
            r = ondrel.ifc67.props(pair, a, b, ["P", "T", "v", "h", "s", "x", "region"])
        for i in range(a.size):
            status, st = clib.ifc67(function, a[i], b[i])
            assert r["status"][i] == status
            if status == 0:
                for name, field in (("P", "p"), ("T", "T"), ("v", "v"), ("h", "h"), ("s", "s"), ("x", "x"),
                                    ("region", "region")):
                    assert same_bits(r[name][i], getattr(st, field)), (pair, name, i)

    def test_out_of_range_warns_and_never_prints(self, capfd):
        with pytest.warns(ondrel.ifc67.IFC67Warning, match="Out of range") as caught:
            r = ondrel.ifc67.from_pT([1.0e5, 1.0e9], [400.0, 400.0], ["h"])
        assert list(r["status"]) == [0, ondrel.Status.outside_data_range] and np.isnan(r["h"][1])
        assert caught[0].message.code > 0
        out, err = capfd.readouterr()
        assert out == "" and err == ""

    def test_scalar_out_of_range_raises_with_the_message(self):
        with warnings.catch_warnings(record=True):
            warnings.simplefilter("always")
            with pytest.raises(ondrel.OndrelError, match="PWSFTN-ERROR") as e:
                ondrel.ifc67.from_pT(1.0e9, 400.0, "h")
        assert e.value.status == ondrel.Status.outside_data_range

    def test_many_messages_are_summed_up(self):
        with warnings.catch_warnings(record=True) as caught:
            warnings.simplefilter("always")
            r = ondrel.ifc67.from_pT(np.full(50, 1.0e9), 400.0, "h", threads=2)
        assert (r["status"] != 0).all() if isinstance(r, dict) else np.isnan(r).all()
        texts = [str(w.message) for w in caught]
        assert len(texts) == 21 and texts[-1].startswith("30 more messages")

    def test_messages_come_in_point_order_whatever_the_threads(self):
        T = np.linspace(300.0, 900.0, 600)

        def messages(threads):
            with warnings.catch_warnings(record=True) as caught:
                warnings.simplefilter("always")
                ondrel.ifc67.from_pT(1.0e9 + T, T, "h", threads=threads)
            return [str(w.message) for w in caught]

        assert messages(1) == messages(2)

    def test_wet_state_properties_and_derived_values(self):
        wet = ondrel.ifc67.from_px(1.0e5, 0.5, ["T", "region", "u", "h", "P", "v", "d"])
        assert wet["region"] == 6 and wet["u"] == wet["h"] - wet["P"] * wet["v"] and wet["d"] == 1.0 / wet["v"]
        with pytest.raises(ondrel.OndrelError) as e:
            ondrel.ifc67.from_px(1.0e5, 0.5, "cp")
        assert e.value.status == ondrel.Status.not_available
        liquid = ondrel.ifc67.from_pT(1.0e5, 300.0, ["cp", "eta", "lambda"])
        assert 4170 < liquid["cp"] < 4190 and 8.0e-4 < liquid["eta"] < 9.0e-4

    def test_offers_only_its_properties(self):
        assert "w" not in ondrel.ifc67.PROPERTIES
        with pytest.raises(ondrel.OndrelError):
            ondrel.ifc67.from_pT(1.0e5, 300.0, "w")

    def test_agrees_with_if97_within_the_formulations_difference(self):
        T = np.linspace(300.0, 800.0, 11)
        h67 = ondrel.ifc67.from_pT(1.0e6, T, "h")
        h97 = ondrel.if97.from_pT(1.0e6, T, "h")
        assert np.max(np.abs(h67 - h97)) < 2.0e3
