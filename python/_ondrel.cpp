// The compiled part of the Python package: thin calls onto the modern C++
// API. Inputs arrive as contiguous float64 arrays (the package broadcasts
// and converts them); the work of an array call runs with the GIL released,
// on the batch threads of the library.
//
// Every call answers with status codes, never an exception for a fault of
// the inputs; the Python layer turns them into exceptions or status arrays.
#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <exception>
#include <string>
#include <thread>
#include <tuple>
#include <utility>
#include <vector>

#include "ondrel/if97.hpp"
#include "ondrel/ifc67.hpp"
#include "ondrel/mixture.hpp"

namespace py = pybind11;

namespace {

using Array = py::array_t<double, py::array::c_style>;
using StatusArray = py::array_t<std::int8_t, py::array::c_style>;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

int code(ondrel::Status s) { return static_cast<int>(s); }

// A 1-D view of a contiguous float64 array.
std::span<const double> view(const Array& a) {
    if (a.ndim() != 1) throw py::value_error("expected a one-dimensional array");
    return {a.data(), static_cast<std::size_t>(a.shape(0))};
}

// The inputs and results of an array call of n points and k properties:
// the inputs as views, the results as the arrays handed back to Python.
struct ArrayCall {
    std::span<const double> in1, in2;
    std::size_t n, k;
    Array out;
    StatusArray status;
    ArrayCall(const Array& a, const Array& b, std::size_t props)
        : in1(view(a)), in2(view(b)), n(in1.size()), k(props), out({n, k}),
          status(static_cast<py::ssize_t>(n)) {
        if (in1.size() != in2.size()) throw py::value_error("input arrays differ in length");
    }
    double* row(std::size_t i) { return out.mutable_data() + i * k; }
    std::int8_t* statuses() { return status.mutable_data(); }
};

// Fewer points than this per thread are not worth a thread of their own.
constexpr std::size_t min_points_per_thread = 256;

// The number of blocks an array of n points is split into (threads = 0: all
// cores). The core count is asked only where a second block could be used:
// the question costs microseconds (the C library reads it from /sys).
std::size_t block_count(std::size_t n, unsigned threads) {
    const std::size_t most = n / min_points_per_thread;
    if (most < 2) return 1;
    if (threads == 0) threads = std::max(1u, std::thread::hardware_concurrency());
    return std::min<std::size_t>(most, threads);
}

// Runs work(begin, end, block) over [0, n) in block_count(n, threads)
// contiguous blocks, one thread a block. Blocks are numbered in order, so
// that what each collects can be joined in the order of a plain loop.
template <class Work>
void for_blocks(std::size_t n, std::size_t blocks, Work&& work) {
    const std::size_t step = (n + blocks - 1) / blocks;
    std::vector<std::thread> pool;
    for (std::size_t b = 1; b < blocks; ++b) {
        const std::size_t begin = std::min(n, b * step);
        const std::size_t end = std::min(n, begin + step);
        try {
            pool.emplace_back([&work, begin, end, b] { work(begin, end, b); });
        } catch (const std::exception&) {
            work(begin, end, b);  // no thread to be had: the block runs here
        }
    }
    work(0, std::min(n, step), 0);
    for (auto& t : pool) t.join();
}

// ---------------------------------------------------------------------------
// Mixture model

// A mixture with the context of its scalar calls. Scalar calls keep the GIL
// (they are short), so one context serves every Python thread; array calls
// release it and run on contexts of their own.
struct PyMixture {
    ondrel::Mixture mix;
    ondrel::Context ctx;
    std::vector<std::string> names;
    std::vector<double> fractions;
};

// (status, detail) of making a mixture; the mixture when ok.
std::tuple<int, std::string, std::shared_ptr<PyMixture>> make_mixture(std::vector<std::string> names,
                                                                       std::vector<double> fractions) {
    if (names.size() != fractions.size()) throw py::value_error("names and fractions differ in length");
    std::vector<ondrel::Fraction> f;
    f.reserve(names.size());
    for (std::size_t i = 0; i < names.size(); ++i) f.push_back({names[i], fractions[i]});
    std::string detail;
    auto made = ondrel::Mixture::make(std::span<const ondrel::Fraction>(f), &detail);
    if (!made) return {code(made.status), detail, nullptr};
    auto m = std::make_shared<PyMixture>();
    m->mix = std::move(made.value);
    m->names = std::move(names);
    m->fractions = std::move(fractions);
    return {0, std::string(), m};
}

std::vector<ondrel::Property> mixture_props(const std::vector<int>& codes) {
    std::vector<ondrel::Property> props;
    props.reserve(codes.size());
    for (int c : codes) {
        if (c < 0 || c >= ondrel::property_count) throw py::value_error("property code out of range");
        props.push_back(static_cast<ondrel::Property>(c));
    }
    return props;
}

ondrel::Pair mixture_pair(int pair) {
    if (pair < 0 || pair >= ondrel::pair_count) throw py::value_error("pair code out of range");
    return static_cast<ondrel::Pair>(pair);
}

// One state: (status, values, detail, not_unique).
std::tuple<int, std::vector<double>, std::string, bool> mixture_scalar(PyMixture& m, int pair, double a, double b,
                                                                       const std::vector<int>& codes) {
    const auto props = mixture_props(codes);
    std::vector<double> out(props.size(), nan);
    std::string detail;
    const auto st = ondrel::solve(m.ctx, m.mix, mixture_pair(pair), a, b, &detail);
    if (!st) return {code(st.status), out, detail, false};
    const auto s = ondrel::properties(m.ctx, m.mix, st.value, props, out);
    if (s != ondrel::Status::ok) std::fill(out.begin(), out.end(), nan);
    return {code(s), out, std::string(), st.value.not_unique};
}

// Arrays: (n x k values, n statuses), through the library's batch call.
std::pair<Array, StatusArray> mixture_array(const PyMixture& m, int pair, const Array& a, const Array& b,
                                            const std::vector<int>& codes, unsigned threads) {
    const auto props = mixture_props(codes);
    const auto p = mixture_pair(pair);
    ArrayCall call(a, b, props.size());
    std::span<double> o(call.row(0), call.n * call.k);
    std::int8_t* st = call.statuses();
    {
        py::gil_scoped_release release;
        std::vector<ondrel::Status> s(call.n);
        ondrel::evaluate(m.mix, p, call.in1, call.in2, props, o, s, threads);
        for (std::size_t i = 0; i < call.n; ++i) st[i] = static_cast<std::int8_t>(s[i]);
    }
    return {std::move(call.out), std::move(call.status)};
}

// ---------------------------------------------------------------------------
// Water and steam: the properties a state of either formulation offers, by
// code, and a row of them from a state.

enum class WaterProp { P, T, v, d, h, s, u, cp, cv, w, alpha, kappa_T, x, region, eta, lambda, count };
constexpr std::array<const char*, static_cast<int>(WaterProp::count)> water_prop_names = {
    "P", "T", "v", "d", "h", "s", "u", "cp", "cv", "w", "alpha", "kappa_T", "x", "region", "eta", "lambda"};

std::vector<WaterProp> water_props(const std::vector<int>& codes) {
    std::vector<WaterProp> props;
    for (int c : codes) {
        if (c < 0 || c >= static_cast<int>(WaterProp::count)) throw py::value_error("property code out of range");
        props.push_back(static_cast<WaterProp>(c));
    }
    return props;
}

// A row of IF97 properties; not_available where a requested value is
// undefined at the state (cp, cv, w, alpha, kappa_T, eta, lambda of a wet state).
ondrel::Status if97_row(const ondrel::if97::State& st, const std::vector<WaterProp>& props, double* row) {
    namespace w = ondrel::if97;
    for (std::size_t j = 0; j < props.size(); ++j) {
        double v = nan;
        switch (props[j]) {
            case WaterProp::P: v = st.p; break;
            case WaterProp::T: v = st.T; break;
            case WaterProp::v: v = st.v; break;
            case WaterProp::d: v = st.rho; break;
            case WaterProp::h: v = st.h; break;
            case WaterProp::s: v = st.s; break;
            case WaterProp::u: v = st.u; break;
            case WaterProp::cp: v = st.cp; break;
            case WaterProp::cv: v = st.cv; break;
            case WaterProp::w: v = st.w; break;
            case WaterProp::alpha: v = st.alpha; break;
            case WaterProp::kappa_T: v = st.kappa; break;
            case WaterProp::x: v = st.x; break;
            case WaterProp::region: v = st.region; break;
            case WaterProp::eta: {
                const auto r = w::viscosity(st);
                if (!r) return r.status;
                v = r.value;
                break;
            }
            case WaterProp::lambda: {
                const auto r = w::conductivity(st);
                if (!r) return r.status;
                v = r.value;
                break;
            }
            case WaterProp::count: break;
        }
        if (std::isnan(v)) return ondrel::Status::not_available;
        row[j] = v;
    }
    return ondrel::Status::ok;
}

// IF97 input pairs by code, in the order of the package's list.
using If97From = ondrel::Result<ondrel::if97::State> (*)(double, double);
constexpr std::array<If97From, 14> if97_pairs = {
    ondrel::if97::from_pT, ondrel::if97::from_ph, ondrel::if97::from_ps, ondrel::if97::from_pu,
    ondrel::if97::from_pv, ondrel::if97::from_Th, ondrel::if97::from_Ts, ondrel::if97::from_Tv,
    ondrel::if97::from_vh, ondrel::if97::from_vs, ondrel::if97::from_vu, ondrel::if97::from_hs,
    ondrel::if97::from_Tx, ondrel::if97::from_px};
constexpr std::array<const char*, 14> if97_pair_names = {"PT", "Ph", "Ps", "Pu", "Pv", "Th", "Ts",
                                                         "Tv", "vh", "vs", "vu", "hs", "Tx", "Px"};

If97From if97_pair(int pair) {
    if (pair < 0 || pair >= static_cast<int>(if97_pairs.size())) throw py::value_error("pair code out of range");
    return if97_pairs[static_cast<std::size_t>(pair)];
}

ondrel::Status if97_point(If97From from, double a, double b, const std::vector<WaterProp>& props, double* row) {
    const auto st = from(a, b);
    ondrel::Status s = st.status;
    if (s == ondrel::Status::ok) s = if97_row(st.value, props, row);
    if (s != ondrel::Status::ok) std::fill(row, row + props.size(), nan);
    return s;
}

std::tuple<int, std::vector<double>> if97_scalar(int pair, double a, double b, const std::vector<int>& codes) {
    const auto props = water_props(codes);
    std::vector<double> out(props.size(), nan);
    const auto s = if97_point(if97_pair(pair), a, b, props, out.data());
    return {code(s), out};
}

std::pair<Array, StatusArray> if97_array(int pair, const Array& a, const Array& b, const std::vector<int>& codes,
                                         unsigned threads) {
    const auto props = water_props(codes);
    const auto from = if97_pair(pair);
    ArrayCall call(a, b, props.size());
    std::int8_t* st = call.statuses();
    {
        py::gil_scoped_release release;
        for_blocks(call.n, block_count(call.n, threads), [&](std::size_t begin, std::size_t end, std::size_t) {
            for (std::size_t i = begin; i < end; ++i)
                st[i] = static_cast<std::int8_t>(if97_point(from, call.in1[i], call.in2[i], props, call.row(i)));
        });
    }
    return {std::move(call.out), std::move(call.status)};
}

// Surface tension over an array of temperatures.
std::pair<Array, StatusArray> if97_surface_tension(const Array& t) {
    const auto in = view(t);
    Array out(static_cast<py::ssize_t>(in.size()));
    StatusArray status(static_cast<py::ssize_t>(in.size()));
    double* o = out.mutable_data();
    std::int8_t* st = status.mutable_data();
    for (std::size_t i = 0; i < in.size(); ++i) {
        const auto r = ondrel::if97::surface_tension(in[i]);
        o[i] = r ? r.value : nan;
        st[i] = static_cast<std::int8_t>(r.status);
    }
    return {std::move(out), std::move(status)};
}

// ---------------------------------------------------------------------------
// IFC-67: one typed call per pair; the messages of the package are returned
// with the values, in the order of a plain loop over the points.

using Ifc67From = ondrel::Result<ondrel::ifc67::State> (*)(ondrel::ifc67::Context&, double, double);
constexpr std::array<Ifc67From, 17> ifc67_pairs = {
    ondrel::ifc67::from_pT, ondrel::ifc67::from_ph, ondrel::ifc67::from_ps, ondrel::ifc67::from_pu,
    ondrel::ifc67::from_pv, ondrel::ifc67::from_px, ondrel::ifc67::from_Tv, ondrel::ifc67::from_Th,
    ondrel::ifc67::from_Tx, ondrel::ifc67::from_Tu, ondrel::ifc67::from_Ts, ondrel::ifc67::from_sx,
    ondrel::ifc67::from_hs, ondrel::ifc67::from_us, ondrel::ifc67::from_vh, ondrel::ifc67::from_vs,
    ondrel::ifc67::from_vu};
constexpr std::array<const char*, 17> ifc67_pair_names = {"PT", "Ph", "Ps", "Pu", "Pv", "Px", "Tv", "Th", "Tx",
                                                          "Tu", "Ts", "sx", "hs", "us", "vh", "vs", "vu"};

// The properties IFC-67 offers, a subset of the water codes.
bool ifc67_offers(WaterProp p) {
    switch (p) {
        case WaterProp::P: case WaterProp::T: case WaterProp::v: case WaterProp::d: case WaterProp::h:
        case WaterProp::s: case WaterProp::u: case WaterProp::x: case WaterProp::region: case WaterProp::cp:
        case WaterProp::eta: case WaterProp::lambda:
            return true;
        default:
            return false;
    }
}

Ifc67From ifc67_pair(int pair) {
    if (pair < 0 || pair >= static_cast<int>(ifc67_pairs.size())) throw py::value_error("pair code out of range");
    return ifc67_pairs[static_cast<std::size_t>(pair)];
}

std::vector<WaterProp> ifc67_props(const std::vector<int>& codes) {
    auto props = water_props(codes);
    for (auto p : props)
        if (!ifc67_offers(p)) throw py::value_error("property not offered by IFC-67");
    return props;
}

ondrel::Status ifc67_point(ondrel::ifc67::Context& ctx, Ifc67From from, double a, double b,
                           const std::vector<WaterProp>& props, double* row) {
    const auto r = from(ctx, a, b);
    ondrel::Status s = r.status;
    if (s == ondrel::Status::ok) {
        const auto& st = r.value;
        const bool more = std::any_of(props.begin(), props.end(), [](WaterProp p) {
            return p == WaterProp::cp || p == WaterProp::eta || p == WaterProp::lambda;
        });
        ondrel::ifc67::Properties extra{nan, nan, nan};
        if (more) {
            const auto e = ondrel::ifc67::properties(ctx, st);
            s = e.status;
            extra = e.value;
        }
        for (std::size_t j = 0; j < props.size() && s == ondrel::Status::ok; ++j) {
            switch (props[j]) {
                case WaterProp::P: row[j] = st.p; break;
                case WaterProp::T: row[j] = st.T; break;
                case WaterProp::v: row[j] = st.v; break;
                case WaterProp::d: row[j] = 1.0 / st.v; break;
                case WaterProp::h: row[j] = st.h; break;
                case WaterProp::s: row[j] = st.s; break;
                case WaterProp::u: row[j] = st.h - st.p * st.v; break;
                case WaterProp::x: row[j] = st.x; break;
                case WaterProp::region: row[j] = st.region; break;
                case WaterProp::cp: row[j] = extra.cp; break;
                case WaterProp::eta: row[j] = extra.viscosity; break;
                case WaterProp::lambda: row[j] = extra.conductivity; break;
                default: break;
            }
        }
    }
    // A state the package took outside its range is not the state asked for: no value.
    if (s != ondrel::Status::ok) std::fill(row, row + props.size(), nan);
    return s;
}

using Messages = std::vector<std::pair<int, std::string>>;

void take_messages(ondrel::ifc67::Context& ctx, Messages& into) {
    for (const auto& m : ctx.messages()) into.emplace_back(m.code, m.text);
    ctx.clear_messages();
}

std::tuple<int, std::vector<double>, Messages> ifc67_scalar(int pair, double a, double b,
                                                            const std::vector<int>& codes) {
    const auto props = ifc67_props(codes);
    std::vector<double> out(props.size(), nan);
    ondrel::ifc67::Context ctx;
    const auto s = ifc67_point(ctx, ifc67_pair(pair), a, b, props, out.data());
    Messages messages;
    take_messages(ctx, messages);
    return {code(s), out, messages};
}

std::tuple<Array, StatusArray, Messages> ifc67_array(int pair, const Array& a, const Array& b,
                                                     const std::vector<int>& codes, unsigned threads) {
    const auto props = ifc67_props(codes);
    const auto from = ifc67_pair(pair);
    ArrayCall call(a, b, props.size());
    std::int8_t* st = call.statuses();
    Messages messages;
    {
        py::gil_scoped_release release;
        const std::size_t blocks = block_count(call.n, threads);
        std::vector<Messages> per_block(blocks);
        for_blocks(call.n, blocks, [&](std::size_t begin, std::size_t end, std::size_t block) {
            ondrel::ifc67::Context ctx;
            for (std::size_t i = begin; i < end; ++i) {
                st[i] = static_cast<std::int8_t>(ifc67_point(ctx, from, call.in1[i], call.in2[i], props, call.row(i)));
                if (!ctx.messages().empty()) take_messages(ctx, per_block[block]);
            }
        });
        for (auto& b : per_block)
            for (auto& m : b) messages.push_back(std::move(m));
    }
    return {std::move(call.out), std::move(call.status), std::move(messages)};
}

}  // namespace

PYBIND11_MODULE(_ondrel, m) {
    m.doc() = "Compiled calls of the ondrel package; use the package, not this module.";

    // Status codes: (number, name, message).
    std::vector<std::tuple<int, std::string, std::string>> statuses;
    constexpr std::array<const char*, 17> status_names = {
        "ok", "gas_data_not_found", "unknown_component", "too_many_components", "invalid_composition",
        "unknown_pair", "unknown_property", "invalid_input", "non_positive_input", "outside_data_range",
        "no_solution", "not_converged", "pressure_undetermined", "not_available", "invalid_argument",
        "not_unique", "out_of_memory"};
    for (int i = 0; i < static_cast<int>(status_names.size()); ++i)
        statuses.emplace_back(i, status_names[static_cast<std::size_t>(i)],
                              std::string(ondrel::message(static_cast<ondrel::Status>(i))));
    m.attr("statuses") = statuses;

    std::vector<std::string> pairs;
    for (int i = 0; i < ondrel::pair_count; ++i) pairs.emplace_back(ondrel::name(static_cast<ondrel::Pair>(i)));
    m.attr("mixture_pairs") = pairs;
    std::vector<std::string> props;
    for (int i = 0; i < ondrel::property_count; ++i)
        props.emplace_back(ondrel::name(static_cast<ondrel::Property>(i)));
    m.attr("mixture_properties") = props;
    m.attr("water_properties") = std::vector<std::string>(water_prop_names.begin(), water_prop_names.end());
    m.attr("if97_pairs") = std::vector<std::string>(if97_pair_names.begin(), if97_pair_names.end());
    m.attr("ifc67_pairs") = std::vector<std::string>(ifc67_pair_names.begin(), ifc67_pair_names.end());
    std::vector<std::string> ifc67_props_offered;
    for (int i = 0; i < static_cast<int>(WaterProp::count); ++i)
        if (ifc67_offers(static_cast<WaterProp>(i))) ifc67_props_offered.emplace_back(water_prop_names[i]);
    m.attr("ifc67_properties") = ifc67_props_offered;

    py::class_<PyMixture, std::shared_ptr<PyMixture>>(m, "Mixture")
        .def_property_readonly("molar_mass", [](const PyMixture& x) { return x.mix.molar_mass(); })
        .def_property_readonly("t_min", [](const PyMixture& x) { return x.mix.t_min(); })
        .def_property_readonly("t_max", [](const PyMixture& x) { return x.mix.t_max(); })
        .def_property_readonly("condensing", [](const PyMixture& x) { return x.mix.condensing(); })
        .def_readonly("names", &PyMixture::names)
        .def_readonly("fractions", &PyMixture::fractions)
        .def("scalar", &mixture_scalar)
        .def("array", &mixture_array);
    m.def("make_mixture", &make_mixture);
    m.def("if97_scalar", &if97_scalar);
    m.def("if97_array", &if97_array);
    m.def("if97_surface_tension", &if97_surface_tension);
    m.def("ifc67_scalar", &ifc67_scalar);
    m.def("ifc67_array", &ifc67_array);
}
