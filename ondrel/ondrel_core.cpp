// Property requests of the mixture model: composition check against the
// stored composition, solution of the input pair, evaluation and conversion
// of the requested properties.
#include "ondrel/ondrel_core.hpp"

#include "ondrel/od_properties.hpp"

#include <algorithm>
#include <cstdio>

#include "fluiddata/od_fluiddata.hpp"
#include "host/ftn_text.hpp"
#include "solver/od_solver.hpp"
#include "thermo/od_units.hpp"
#include "thermo/od_derivative.hpp"
#include "thermo/od_mixinfo.hpp"
#include "thermo/od_thermodyn.hpp"
#include "thermo/od_transport.hpp"

namespace od::ondrel {
namespace {

using units::celsius_offset;
using units::j_to_kj;
using units::pa_to_bar;

constexpr std::array<int, 4> version = {3, 0, 1, 24};

// The last solved state and the request it came from; zero at load.
struct State {
    double t = 0.0;          // K
    double p = 0.0;          // Pa
    double od_input2 = 0.0;  // as given by the caller
    double od_input1 = 0.0;
    std::array<char, 2> od_inputspec{};  // first two characters, blank-padded
    // The last list of names found in the gas table (spares the table search).
    std::array<CompName, max_components> known{};
    std::size_t n_known = 0;
    // The table generation the names and the last state were checked against;
    // -1 until the first request has seen the loaded table.
    long long table = -1;
    bool state_reusable = true;  // p and t above may serve a repeated request
};

State& state() {
    static State s;
    return s;
}

enum class Composition { same, changed, unknown };

// Intended: the stored concentrations are compared but never written (all
// 0.0), so only all-zero concentrations pass and ordinary requests solve again.
bool same_concentrations(const Mixture& mix) {
    for (int i = 0; i < mix.n(); ++i)
        if (!(mix.conc[static_cast<std::size_t>(i)] == fluiddata::stored_conc(i + 1))) return false;
    return true;
}

// Every name is a gas table row. A list that passed before passes again and
// is not searched a second time, as long as the table is not loaded anew.
bool all_known(const Mixture& mix) {
    State& s = state();
    if (std::ranges::equal(mix.names, std::span<const CompName>(s.known.data(), s.n_known))) return true;
    for (const CompName& name : mix.names)
        if (!fluiddata::iscomp(name)) return false;
    std::copy(mix.names.begin(), mix.names.end(), s.known.begin());
    s.n_known = mix.names.size();
    return true;
}

// Loads the gas table on the first call, whatever else the call asks. After
// a later load of another table the names found and the last state are
// forgotten: the names are checked again and the state is solved again.
void load_table() {
    if (!fluiddata::dbread()) fluiddata::readgas();
    State& s = state();
    const long long generation = fluiddata::table_generation();
    if (s.table == generation) return;
    if (s.table >= 0) {
        s.n_known = 0;
        s.state_reusable = false;
    }
    s.table = generation;
}

// Runs the composition test (count, names and concentrations equal to the
// stored ones), checks a new mixture's names and stores a new list of names.
Composition select(const Mixture& mix) {
    const bool names_stored = fluiddata::same_as_stored(mix.names);
    if (names_stored && same_concentrations(mix)) return Composition::same;
    if (!all_known(mix)) return Composition::unknown;
    // A change of concentrations alone keeps the stored names and table rows.
    if (!names_stored) fluiddata::storeidx(mix.names);
    return Composition::changed;
}

// The caller's lists as a mixture; false when the count is outside 0..250 or
// a list is shorter than it.
bool as_mixture(int ncomp, std::span<const CompName> names, std::span<const double> conc,
                Mixture& mix) {
    if (ncomp < 0 || ncomp > max_components) return false;
    const auto n = static_cast<std::size_t>(ncomp);
    if (names.size() < n || conc.size() < n) return false;
    mix = Mixture{names.first(n), conc.first(n)};
    return true;
}

// Preparation shared by od_prop and od_allprops; false on an unknown component.
bool prepare_state(std::string_view inputspec, double input1, double input2, int ncomp,
                   std::span<const CompName> names, std::span<const double> conc, Mixture& mix,
                   int& errcode) {
    load_table();
    errcode = err_none;
    if (!as_mixture(ncomp, names, conc, mix)) {
        errcode = err_unknown_component;
        return false;
    }
    const Composition c = select(mix);
    if (c == Composition::unknown) {
        errcode = err_unknown_component;
        return false;
    }
    State& s = state();
    const std::array<char, 2> spec = solver::spec_letters(inputspec);
    if (c == Composition::same && s.state_reusable && spec == s.od_inputspec && input1 == s.od_input1 &&
        input2 == s.od_input2)
        return true;  // the stored p and t
    s.state_reusable = true;
    s.od_inputspec = spec;
    s.od_input1 = input1;
    s.od_input2 = input2;
    // Intended: the solver's code is not tested here; evaluation goes on at its result.
    const StoredRows rows(mix);
    s.p = solver::core::get_p(default_context(), inputspec, input1, input2, rows, errcode);
    s.t = solver::core::get_t(default_context(), inputspec, input1, input2, rows, errcode);
    return true;
}

using Evaluator = double (*)(Context& ctx, double p, double t, const MixtureRows& mix);

// The evaluation of each property in the order of property_names, with its
// conversion to interface units.
using R = const MixtureRows&;
namespace td = thermodyn::core;
namespace dv = derivative;
constexpr std::array<Evaluator, legacy_property_count> evaluators = {
    [](Context&, double p, double, R) { return p * pa_to_bar; },
    [](Context&, double, double t, R) { return t - celsius_offset; },
    [](Context& c, double p, double t, R m) { return td::v_pt(c, p, t, m); },
    [](Context& c, double p, double t, R m) { return 1.0 / td::v_pt(c, p, t, m); },
    [](Context& c, double p, double t, R m) { return td::h_pt(c, p, t, m) * j_to_kj; },
    [](Context& c, double p, double t, R m) { return td::s_pt(c, p, t, m) * j_to_kj; },
    [](Context& c, double p, double t, R m) { return td::u_pt(c, p, t, m) * j_to_kj; },
    [](Context& c, double p, double t, R m) { return td::cv_pt(c, p, t, m) * j_to_kj; },
    [](Context&, double p, double t, R) { return dv::dp_dt(p, t); },
    [](Context&, double p, double t, R m) { return dv::dp_dv(p, t, m); },
    [](Context&, double, double, R) { return dv::d2p_dt2(); },
    [](Context&, double p, double t, R m) { return dv::d2p_dv2(p, t, m); },
    [](Context&, double p, double t, R m) { return dv::d2p_dtdv(p, t, m); },
    [](Context&, double, double t, R m) { return dv::dcv_dt(t, m); },
    [](Context&, double, double t, R m) { return transport::core::eta_t(t, m); },
    [](Context& c, double p, double t, R m) { return transport::core::lambda_pt(c, p, t, m); },
};

}  // namespace

double od_prop(std::string_view inputspec, double input1, double input2, int ncomp,
               std::span<const CompName> names, std::span<const double> conc,
               std::string_view outname, int& errcode) {
    Mixture mix;
    if (!prepare_state(inputspec, input1, input2, ncomp, names, conc, mix, errcode))
        return missing_value;
    const std::string_view wanted = ftn::trim(outname);
    const State& s = state();
    for (std::size_t i = 0; i < evaluators.size(); ++i)
        if (property_names[i] == wanted) return evaluators[i](default_context(), s.p, s.t, StoredRows(mix));
    errcode = err_unknown_property;
    return missing_value;
}

AllProps od_allprops(std::string_view inputspec, double input1, double input2, int ncomp,
                     std::span<const CompName> names, std::span<const double> conc, int& errcode) {
    Mixture mix;
    if (!prepare_state(inputspec, input1, input2, ncomp, names, conc, mix, errcode)) {
        const double m = missing_value;
        return {m, m, m, m, m, m, m, m, m, m, m, m, m, m, m, m};
    }
    const double p = state().p;
    const double t = state().t;
    const StoredRows stored(mix);
    const MixtureRows& rows = stored;
    Context& ctx = default_context();
    AllProps r{};
    r.P = p * pa_to_bar;
    r.T = t - celsius_offset;
    r.v = thermodyn::core::v_pt(ctx, p, t, rows);
    r.d = 1.0 / r.v;
    r.h = thermodyn::core::h_pt(ctx, p, t, rows) * j_to_kj;
    r.s = thermodyn::core::s_pt(ctx, p, t, rows) * j_to_kj;
    r.u = thermodyn::core::u_pt(ctx, p, t, rows) * j_to_kj;
    r.cv = thermodyn::core::cv_pt(ctx, p, t, rows) * j_to_kj;
    r.dP_dT = derivative::dp_dt(p, t);
    r.dP_dv = derivative::dp_dv(p, t, rows);
    r.d2P_dT2 = derivative::d2p_dt2();
    r.d2P_dv2 = derivative::d2p_dv2(p, t, rows);
    r.d2P_dTdv = derivative::d2p_dtdv(p, t, rows);
    r.dCv_dT = derivative::dcv_dt(t, rows);
    r.eta = transport::core::eta_t(t, rows);
    r.lambda = transport::core::lambda_pt(ctx, p, t, rows);
    return r;
}

double od_info(int ncomp, std::span<const CompName> names, std::span<const double> conc,
               std::string_view infoname, int& errcode) {
    load_table();
    errcode = err_none;
    Mixture mix;
    if (!as_mixture(ncomp, names, conc, mix) || select(mix) == Composition::unknown) {
        errcode = err_unknown_component;
        return missing_value;
    }
    const std::string_view wanted = ftn::trim(infoname);
    if (wanted == "M_mol") return mixinfo::mmol(mix);
    if (wanted == "T_min") return mixinfo::tmin(mix) - celsius_offset;
    if (wanted == "T_max") return mixinfo::tmax(mix) - celsius_offset;
    errcode = err_unknown_info;
    return missing_value;
}

int od_compset(std::span<CompName, max_components> names) {
    load_table();
    return fluiddata::getcompset(names);
}

std::array<int, 4> od_getversion() { return version; }

void ondrel_sub() {
    // Free-format output: the line begins with one blank.
    std::printf(" %.*s\n", static_cast<int>(greeting.size()), greeting.data());
    std::fflush(stdout);
}

LastState last_state() {
    const State& s = state();
    return {s.t, s.p, s.od_input1, s.od_input2, s.od_inputspec};
}

void reset_for_tests() { state() = State{}; }

}  // namespace od::ondrel
