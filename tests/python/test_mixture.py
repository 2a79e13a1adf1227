"""The mixture model from Python: the same bits as the C interface, numpy's
broadcasting and dtype rules, and every fault named."""

import pickle
import threading
import warnings

import numpy as np
import pytest

import ondrel
from conftest import DRY_FLUE_GAS, FLUE_GAS, same_bits

ALL = list(ondrel.PROPERTIES)
# T_dew and rh are not available without condensing water, nor above the critical temperature.
DRY_ALL = [p for p in ALL if p not in ("T_dew", "rh")]


@pytest.fixture(scope="module")
def wet():
    return ondrel.Mixture(FLUE_GAS)


@pytest.fixture(scope="module")
def dry():
    return ondrel.Mixture(DRY_FLUE_GAS)


def condensing_grid():
    """States of the flue gas across its dew point (about 50 C) and below the triple point."""
    T = np.linspace(250.0, 420.0, 60)
    p = np.array([0.5e5, 1.01325e5, 5.0e5])
    return np.repeat(p, T.size), np.tile(T, p.size)


# The flue gas's enthalpies above 273.16 K come back below it: not_unique is expected.
pytestmark = pytest.mark.filterwarnings("ignore::ondrel.NotUniqueWarning")


class TestSameBitsAsTheLibrary:
    def test_every_property_of_dry_gas_from_p_and_T(self, dry, clib):
        p = np.geomspace(1.0e3, 1.0e7, 40).repeat(5)
        T = np.tile([220.0, 300.0, 800.0, 2000.0, 5500.0], 40)
        mine = dry.props("PT", p, T, DRY_ALL)
        theirs, status = clib.evaluate(DRY_FLUE_GAS, "PT", p, T, DRY_ALL)
        assert (status == 0).all() and (mine["status"] == 0).all()
        for j, name in enumerate(DRY_ALL):
            assert same_bits(mine[name], theirs[:, j]), name

    @pytest.mark.parametrize("pair", ["Ph", "Ps", "Tv", "hs", "vu"])
    def test_solved_states_of_condensing_gas(self, wet, clib, pair):
        p, T = condensing_grid()
        first, second = pair
        given = wet.props("PT", p, T, [first if first != "P" else "P", second])
        a, b = given[first], given[second]
        names = ["P", "T", "h", "s", "cp_eq", "x_condensed", "eta", "lambda"]
        mine = wet.props(pair, a, b, names)
        theirs, status = clib.evaluate(FLUE_GAS, pair, a, b, names)
        assert same_bits(mine["status"], status)
        for j, name in enumerate(names):
            assert same_bits(mine[name], theirs[:, j]), name

    def test_scalar_call_equals_array_point(self, wet):
        p, T = condensing_grid()
        h = wet.props("PT", p, T, "h")
        array = wet.props("Ph", p, h, ["T", "cp", "x_gas"], raise_on_error=True)
        for i in range(0, p.size, 7):
            scalar = wet.props("Ph", float(p[i]), float(h[i]), ["T", "cp", "x_gas"])
            assert all(same_bits(scalar[k], array[k][i]) for k in scalar)

    def test_thread_count_does_not_change_bits(self, wet):
        p = np.full(3000, 1.01325e5)
        h = np.linspace(-3.0e6, -2.5e6, p.size)
        one = wet.props("Ph", p, h, "T", threads=1)
        assert same_bits(one, wet.props("Ph", p, h, "T", threads=2))
        assert same_bits(one, wet.props("Ph", p, h, "T", threads=7))


class TestShapes:
    def test_scalar_in_scalar_out(self, dry):
        h = dry.props("PT", 1.0e5, 300.0, "h")
        assert type(h) is float
        both = dry.props("PT", 1.0e5, 300, ["h", "s"])
        assert set(both) == {"h", "s"} and both["h"] == h

    def test_numpy_scalars_and_zero_dimensional_arrays_are_scalars(self, dry):
        h = dry.props("PT", 1.0e5, 300.0, "h")
        assert dry.props("PT", np.float32(1.0e5), np.array(300.0), "h") == h
        assert dry.props("PT", np.int64(100000), np.float64(300.0), "h") == h

    def test_broadcasting_follows_numpy(self, dry):
        p = np.array([[1.0e5], [2.0e5], [5.0e5]])
        T = np.array([300.0, 400.0, 500.0, 600.0])
        r = dry.props("PT", p, T, ["h", "v"])
        assert r["h"].shape == (3, 4) and r["status"].shape == (3, 4) and r["status"].dtype == np.int8
        for i in range(3):
            for j in range(4):
                assert r["v"][i, j] == dry.props("PT", float(p[i, 0]), float(T[j]), "v")

    def test_scalar_with_array_and_single_name(self, dry):
        T = np.linspace(300.0, 900.0, 7)
        h = dry.props("PT", 1.0e5, T, "h")
        assert isinstance(h, np.ndarray) and h.shape == (7,) and h.dtype == np.float64
        assert (np.diff(h) > 0).all()

    def test_lists_integers_and_float32_convert(self, dry):
        ref = dry.props("PT", [1.0e5, 2.0e5], [300.0, 400.0], "h")
        assert same_bits(dry.props("PT", [100000, 200000], [300, 400], "h"), ref)
        assert same_bits(dry.props("PT", np.array([1.0e5, 2.0e5], dtype=np.float32),
                                   np.array([300.0, 400.0], dtype=np.float32), "h"), ref)

    def test_strided_and_reversed_inputs(self, dry):
        T = np.linspace(300.0, 1300.0, 21)
        ref = dry.props("PT", 1.0e5, T, "h")
        assert same_bits(dry.props("PT", 1.0e5, T[::2], "h"), ref[::2])
        assert same_bits(dry.props("PT", 1.0e5, T[::-1], "h"), ref[::-1])
        grid = np.stack([T, T])
        assert same_bits(dry.props("PT", 1.0e5, grid.T, "h"), np.stack([ref, ref]).T)

    def test_empty_arrays(self, dry):
        r = dry.props("PT", np.array([]), np.array([]), ["h"])
        assert r["h"].shape == (0,) and r["status"].shape == (0,)

    def test_inputs_that_do_not_broadcast(self, dry):
        with pytest.raises(ValueError):
            dry.props("PT", np.ones(3), np.ones(4), "h")

    @pytest.mark.parametrize("bad", [np.array([1.0 + 1j]), np.array(["1e5"]), "1e5", None, np.array([True])])
    def test_inputs_that_are_not_real_numbers(self, dry, bad):
        with pytest.raises(TypeError):
            dry.props("PT", bad, 300.0, "h")


class TestFaults:
    def test_unknown_component_is_named(self):
        with pytest.raises(ondrel.OndrelError, match="XYZ") as e:
            ondrel.Mixture({"N2": 0.5, "XYZ": 0.5})
        assert e.value.status == ondrel.Status.unknown_component

    @pytest.mark.parametrize("composition", [{}, {"N2": 0.5, "O2": 0.4}, {"N2": 1.2, "O2": -0.2},
                                             {"N2": float("nan")}])
    def test_invalid_compositions(self, composition):
        with pytest.raises(ondrel.OndrelError) as e:
            ondrel.Mixture(composition)
        assert e.value.status == ondrel.Status.invalid_composition

    def test_too_many_components(self):
        with pytest.raises(ondrel.OndrelError) as e:
            ondrel.Mixture([("N2", 1.0 / 251)] * 251)
        assert e.value.status == ondrel.Status.too_many_components

    def test_composition_as_pairs_and_its_view(self):
        mix = ondrel.Mixture([("N2", 0.79), ("O2", 0.21)])
        assert mix.composition == {"N2": 0.79, "O2": 0.21}
        assert not mix.condensing and 0.0288 < mix.molar_mass < 0.0290 and mix.t_min < 300 < mix.t_max
        assert "N2" in repr(mix)

    def test_pickles_as_its_composition(self, wet):
        again = pickle.loads(pickle.dumps(wet))
        assert again.composition == wet.composition
        assert same_bits(again.props("PT", 1.0e5, [280.0, 400.0], "h"), wet.props("PT", 1.0e5, [280.0, 400.0], "h"))

    def test_unknown_pair_and_property(self, dry):
        with pytest.raises(ondrel.OndrelError, match="known: PT") as e:
            dry.props("pT", 1.0e5, 300.0, "h")
        assert e.value.status == ondrel.Status.unknown_pair
        with pytest.raises(ondrel.OndrelError, match="'H'") as e:
            dry.props("PT", 1.0e5, 300.0, ["h", "H"])
        assert e.value.status == ondrel.Status.unknown_property
        with pytest.raises(ondrel.OndrelError):
            dry.props("PT", 1.0e5, 300.0, [])

    @pytest.mark.parametrize("p, T, status", [(float("nan"), 300.0, "invalid_input"),
                                              (1.0e5, float("inf"), "invalid_input"),
                                              (-1.0e5, 300.0, "non_positive_input"),
                                              (1.0e5, 7000.0, "outside_data_range")])
    def test_scalar_faults_raise_with_their_status(self, dry, p, T, status):
        with pytest.raises(ondrel.OndrelError) as e:
            dry.props("PT", p, T, "h")
        assert e.value.status == ondrel.Status[status]
        assert ondrel.message(e.value.status) in str(e.value)

    def test_no_solution_names_the_inputs(self, wet):
        with pytest.raises(ondrel.OndrelError, match="Ph") as e:
            wet.props("Ph", 1.0e5, 1.0e12, "T")
        assert e.value.status == ondrel.Status.no_solution
        assert "1000000000000 J/kg" in str(e.value)

    def test_array_faults_give_nan_and_status(self, dry):
        p = np.array([1.0e5, np.nan, -1.0, 1.0e5, 1.0e5])
        T = np.array([300.0, 300.0, 300.0, 1.0e5, 500.0])
        r = dry.props("PT", p, T, ["h", "s"])
        assert list(r["status"]) == [0, ondrel.Status.invalid_input, ondrel.Status.non_positive_input,
                                     ondrel.Status.outside_data_range, 0]
        good = r["status"] == 0
        assert np.isfinite(r["h"][good]).all() and np.isnan(r["h"][~good]).all() and np.isnan(r["s"][~good]).all()
        single = dry.props("PT", p, T, "h")
        assert same_bits(single, r["h"])

    def test_raise_on_error_names_the_first_failed_point(self, dry):
        p = np.array([[1.0e5, 1.0e5], [1.0e5, -5.0]])
        with pytest.raises(ondrel.OndrelError, match=r"point \(1, 1\)") as e:
            dry.props("PT", p, 300.0, "h", raise_on_error=True)
        assert e.value.status == ondrel.Status.non_positive_input
        assert dry.props("PT", p[0], 300.0, "h", raise_on_error=True).shape == (2,)

    def test_dew_point_of_dry_gas_is_not_available(self, dry):
        with pytest.raises(ondrel.OndrelError) as e:
            dry.props("PT", 1.0e5, 300.0, "T_dew")
        assert e.value.status == ondrel.Status.not_available

    def test_every_status_has_its_message(self):
        texts = [ondrel.message(s) for s in ondrel.Status]
        assert len(set(texts)) == len(texts) and ondrel.message(ondrel.Status.ok) == "no error"
        assert ondrel.message(999) == "unknown status"

    def test_not_unique_root_warns(self, wet):
        h40 = wet.props("PT", 1.01325e5, 313.15, "h")
        with warnings.catch_warnings(record=True) as caught:
            warnings.simplefilter("always")
            T = wet.props("Ph", 1.01325e5, h40, "T")
        assert T == pytest.approx(313.15, rel=1e-9)
        assert any(issubclass(w.category, ondrel.NotUniqueWarning) for w in caught)


class TestState:
    def test_named_inputs_in_either_order(self, wet):
        a = wet.state(P=1.01325e5, h=-2.8e6)
        b = wet.state(h=-2.8e6, P=1.01325e5)
        assert a == b and set(a) == set(ondrel.PROPERTIES) - {"T_dew", "rh"}
        assert a["x_gas"] + a["x_condensed"] == pytest.approx(1.0, rel=1e-12)

    def test_state_of_arrays_and_chosen_properties(self, wet):
        r = wet.state(T=np.array([300.0, 330.0]), P=1.0e5, props=["T_dew", "rh"])
        assert set(r) == {"T_dew", "rh", "status"} and (r["status"] == 0).all()
        assert r["rh"][0] == pytest.approx(1.0) and r["rh"][1] < 1.0

    def test_inputs_that_fix_no_pair(self, wet):
        with pytest.raises(ondrel.OndrelError) as e:
            wet.state(h=1.0e5, u=1.0)
        assert e.value.status == ondrel.Status.unknown_pair
        with pytest.raises(TypeError):
            wet.state(P=1.0e5)
        with pytest.raises(TypeError):
            wet.state(P=1.0e5, T=300.0, h=1.0)


def test_array_calls_release_the_interpreter(wet):
    """Two Python threads evaluate at once and get what one thread gets."""
    p = np.full(20000, 1.01325e5)
    h = np.linspace(-3.0e6, -2.0e6, p.size)
    expected = wet.props("Ph", p, h, "T", threads=1)
    results = [None, None]

    def work(i):
        results[i] = wet.props("Ph", p, h, "T", threads=1)

    threads = [threading.Thread(target=work, args=(i,)) for i in range(2)]
    for t in threads:
        t.start()
    ticks = 0
    while any(t.is_alive() for t in threads):
        ticks += 1  # the main thread runs while the array calls work
        threads[0].join(0.001)
    for t in threads:
        t.join()
    assert all(same_bits(r, expected) for r in results)
    assert ticks > 1
