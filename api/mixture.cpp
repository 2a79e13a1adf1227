// The modern API of the mixture model: gas tables loaded once, mixtures
// resolved once, states solved and checked, properties in SI units.
#include "ondrel/mixture.hpp"

#include <algorithm>
#include <cstdio>
#include <cmath>
#include <limits>
#include <mutex>
#include <utility>

#include "api/mixture_data.hpp"
#include "api/mixture_search.hpp"
#include "ondrel/od_properties.hpp"
#include "solver/od_pair_search.hpp"
#include "solver/od_solver.hpp"
#include "thermo/od_basefuncs.hpp"
#include "thermo/od_component.hpp"
#include "thermo/od_context.hpp"
#include "thermo/od_derivative.hpp"
#include "thermo/od_mixinfo.hpp"
#include "thermo/od_thermodyn.hpp"
#include "thermo/od_transport.hpp"
#include "thermo/od_units.hpp"

namespace ondrel {
namespace {

namespace td = od::thermodyn::core;
namespace dv = od::derivative;
namespace tr = od::transport::core;
using detail::pressure_at;
using detail::quantity;
using detail::saturation_pressure;
using detail::t_triple;
using od::units::bar_to_pa;
using od::units::celsius_offset;
using od::units::j_to_kj;
using od::units::pa_to_bar;

inline constexpr double fraction_sum_tolerance = 1e-6;  // |sum of mole fractions - 1| allowed
inline constexpr int start_grid_points = 256;       // temperatures of a mixture's Newton start grid

using TableResult = Result<std::shared_ptr<const GasTable>>;

void set(std::string* detail, std::string text) {
    if (detail) *detail = std::move(text);
}

TableResult loaded(std::shared_ptr<GasTable> t, const std::string& where, std::string* detail) {
    if (t->table.ngas < 1) {
        set(detail, "no gas data in " + where);
        return {nullptr, Status::gas_data_not_found};
    }
    return {std::move(t), Status::ok};
}

// A path in quotes (built by appending: GCC 12 misreads the chained operator+ at -O3).
std::string quoted(std::string_view text) {
    std::string q;
    q.reserve(text.size() + 2);
    q.push_back('"');
    q.append(text);
    q.push_back('"');
    return q;
}

std::string describe(const od::fluiddata::Source& s) {
    return s.database ? "the fluid database in " + quoted(s.directory) : quoted(s.file_path());
}

// The rows the condensing water's gas-table terms use: the last "H2O" row
// before the first "H2O(L)" row, and that "H2O(L)" row (as the exported
// routines find them).
od::h2o::WaterRows water_rows(const od::fluiddata::Table& t) {
    static const od::CompName gas = od::CompName::from("H2O");
    static const od::CompName liquid = od::CompName::from("H2O(L)");
    od::h2o::WaterRows w;
    for (int j = 0; j < t.ngas; ++j) {
        if (t.rows[j].name == gas) w.gas = &t.rows[j];
        if (t.rows[j].name == liquid) {
            w.liquid = &t.rows[j];
            break;
        }
    }
    return w;
}

bool finite(double x) { return std::isfinite(x); }


Status check_state(const Mixture& mix, const State& st) {
    if (!mix.valid()) return Status::invalid_argument;
    if (!finite(st.p) || !finite(st.T)) return Status::invalid_input;
    if (st.p <= 0.0 || st.T <= 0.0) return Status::non_positive_input;
    // The polynomials are not extrapolated: outside their range they are no data.
    if (st.T < mix.data().t_min || st.T > mix.data().t_max) return Status::outside_data_range;
    return Status::ok;
}

// The caloric and volumetric properties of a gas without condensing water
// from one pass over its components (h as h_pt gives it; s, v within a few
// units of the last bit of s_pt, v_pt, summed in another order).
struct GasState {
    double h, s, cv, v;
};
// parts: the sums the wanted properties need (u needs h).
GasState gas_state(const detail::MixtureData& m, double p, double t, td::SumParts parts) {
    const td::GasSums g = td::gas_sums(m.rows, t, parts.s ? std::log(t) : 0.0, parts);
    const double r = od::basefuncs::r_gas;
    GasState st;
    st.h = g.h * r / m.molar_mass;
    st.s = parts.s ? (g.s - m.gas_moles * std::log(p / od::basefuncs::p_ref) - m.mixing) * r / m.molar_mass : 0.0;
    st.cv = (g.cp * r - r) / m.molar_mass;
    st.v = (m.gas_moles * (r * t / p) + m.condensed_volume) / m.molar_mass;
    return st;
}

// The sums a property needs.
td::SumParts parts_of(Property prop) {
    return {prop == Property::h || prop == Property::u, prop == Property::s,
            prop == Property::cv || prop == Property::cp};
}

bool caloric(Property prop) {
    return prop == Property::v || prop == Property::d || prop == Property::h || prop == Property::s ||
           prop == Property::u || prop == Property::cv || prop == Property::cp;
}


// --- the properties beyond the sixteen ------------------------------------------

inline constexpr double t_crit_water = 647.096;   // K: no saturation above
inline constexpr double p_crit_water = 22.064e6;  // Pa
inline constexpr double derivative_step = 1e-3;   // K, step of the numerical derivatives
inline constexpr double t_dew_max = 647.0;        // K, upper end of the dew-point search, below the critical point

const double no_value = std::numeric_limits<double>::quiet_NaN();

double gas_moles(od::Context& c, const detail::MixtureData& m, double p, double t) {
    return m.all_gas > 0.0 ? td::x_gas(c, p, t, m.rows) : 0.0;
}

double condensed_moles(od::Context& c, const detail::MixtureData& m, double p, double t) {
    return m.all_gas > 0.0 ? m.all_gas - td::x_gas(c, p, t, m.rows) : 0.0;
}

// Dew point: where the saturation pressure reaches the partial pressure the
// water would have with none of it condensed. The model's water condenses
// only from the triple point up (below it the saturation pressure it uses is
// out of reach on purpose), so the dew point is searched there.
double dew_point(od::Context& c, const detail::MixtureData& m, double p) {
    if (!(m.water > 0.0)) return no_value;
    const double p_water = p * m.water / m.all_gas;
    if (!(p_water < p_crit_water)) return no_value;
    const auto f = [&](double t) { return saturation_pressure(c, t) - p_water; };
    const od::search::Root r =
        od::search::find_root(f, std::max(m.t_min, t_triple), std::min(m.t_max, t_dew_max), false, 2);
    return r.outcome == od::search::Outcome::found ? r.x : no_value;
}

double relative_humidity(od::Context& c, const detail::MixtureData& m, double p, double t) {
    if (!(m.water > 0.0) || t > t_crit_water) return no_value;
    const double gas = gas_moles(c, m, p, t);
    const double vapour = m.water - condensed_moles(c, m, p, t);
    return p * (vapour / gas) / saturation_pressure(c, t);
}

// Speed of sound and isentropic exponent of the gas phase: the ideal-gas
// terms of its components (the vapour of "H2O(IF)" with the "H2O" row), the
// composition frozen.
struct Sound {
    double w, kappa;
};
Sound gas_sound(od::Context& c, const detail::MixtureData& m, double p, double t) {
    const double vapour = m.water > 0.0 ? m.water - condensed_moles(c, m, p, t) : 0.0;
    double n = 0.0, cp = 0.0, mass = 0.0;
    bool water_seen = false;
    for (const od::Component& comp : m.comps) {
        if (comp.phase != 'G' || !(comp.conc > od::thermodyn::negligible)) continue;
        double moles = comp.conc;
        const od::fluiddata::TableRow* row = comp.row;
        if (comp.water_if) {
            moles = water_seen ? 0.0 : vapour;  // the first entry carries the water, as in the sums
            water_seen = true;
            row = m.rows.water.gas;
        }
        n += moles;
        cp += moles * od::component::cp_of(od::component::coefs(row, t), t);
        mass += moles * od::component::mmol(row);
    }
    if (!(n > 0.0)) return {no_value, no_value};
    const double r = od::basefuncs::r_gas;
    const double cp_molar = r * cp / n;
    const double kappa = cp_molar / (cp_molar - r);
    return {std::sqrt(kappa * r * t / (mass / n)), kappa};
}

// A derivative in temperature of f by differences of step derivative_step:
// central, or one-sided from below within a step of a kink (the dew point,
// the triple point), so that it is the derivative on the lower side there.
template <class F>
double temperature_derivative(F&& f, double t, double kink) {
    const double h = derivative_step;
    const bool near_kink = std::fabs(t - kink) < 2.0 * h || std::fabs(t - t_triple) < 2.0 * h;
    if (near_kink) return (3.0 * f(t) - 4.0 * f(t - h) + f(t - 2.0 * h)) / (2.0 * h);
    return (f(t + h) - f(t - h)) / (2.0 * h);
}

double cp_equilibrium(od::Context& c, const detail::MixtureData& m, double p, double t) {
    if (!m.condensing) return gas_state(m, p, t, {false, false, true}).cv + m.r_specific;
    const auto h = [&](double x) { return td::h_pt(c, p, x, m.rows); };
    return temperature_derivative(h, t, dew_point(c, m, p));
}

double cv_equilibrium(od::Context& c, const detail::MixtureData& m, double p, double t) {
    if (!m.condensing) {
        // Along the isochore p rises as T: (dp/dT)_v = p / T.
        const GasState gs = gas_state(m, p, t, {false, false, true});
        return gs.cv + m.r_specific - gs.v * p / t;
    }
    const double v = td::v_pt(c, p, t, m.rows);
    const auto u = [&](double x) {
        const od::search::Root pr = pressure_at(c, m, 'v', v, x);
        return pr.outcome == od::search::Outcome::found ? quantity(c, m, 'u', pr.x, x) : no_value;
    };
    return temperature_derivative(u, t, dew_point(c, m, p));
}

double extended(od::Context& c, const detail::MixtureData& m, Property prop, double p, double t, double cv) {
    switch (prop) {
    case Property::cp: return cv + m.r_specific;
    case Property::cp_eq: return cp_equilibrium(c, m, p, t);
    case Property::cv_eq: return cv_equilibrium(c, m, p, t);
    case Property::w: return gas_sound(c, m, p, t).w;
    case Property::kappa: return gas_sound(c, m, p, t).kappa;
    case Property::x_gas: return gas_moles(c, m, p, t);
    case Property::x_condensed: return condensed_moles(c, m, p, t);
    case Property::T_dew: return dew_point(c, m, p);
    case Property::rh: return relative_humidity(c, m, p, t);
    case Property::M: return m.molar_mass;
    case Property::R: return m.r_specific;
    default: return no_value;
    }
}

// Property prop at (p, t); gs holds the gas state when the mixture has no
// condensing water and prop is caloric or volumetric.
double evaluate_one(od::Context& c, const detail::MixtureData& m, Property prop, double p, double t,
                    const GasState* gs) {
    const od::MixtureRows& r = m.rows;
    if (gs) {
        switch (prop) {
        case Property::v: return gs->v;
        case Property::d: return 1.0 / gs->v;
        case Property::h: return gs->h;
        case Property::s: return gs->s;
        case Property::u: return gs->h - gs->v * p;
        case Property::cv: return gs->cv;
        default: break;
        }
    }
    switch (prop) {
    case Property::P: return p;
    case Property::T: return t;
    case Property::v: return td::v_pt(c, p, t, r);
    case Property::d: return 1.0 / td::v_pt(c, p, t, r);
    case Property::h: return td::h_pt(c, p, t, r);
    case Property::s: return td::s_pt(c, p, t, r);
    case Property::u: return td::u_pt(c, p, t, r);
    case Property::cv: return td::cv_pt(c, p, t, r);
    case Property::dP_dT: return dv::dp_dt(p, t);
    case Property::dP_dv: return dv::dp_dv(p, t, r);
    case Property::d2P_dT2: return dv::d2p_dt2();
    case Property::d2P_dv2: return dv::d2p_dv2(p, t, r);
    case Property::d2P_dTdv: return dv::d2p_dtdv(p, t, r);
    case Property::dCv_dT: return dv::dcv_dt(t, r);
    case Property::eta: return tr::eta_t(t, r, &m.wilke);
    case Property::lambda: return tr::lambda_pt(c, p, t, r, &m.wilke);
    default: break;
    }
    const double cv = prop == Property::cp ? (gs ? gs->cv : td::cv_pt(c, p, t, r)) : 0.0;
    return extended(c, m, prop, p, t, cv);
}

}  // namespace

// --- gas tables --------------------------------------------------------------

TableResult default_gas_table(std::string* detail) {
    static std::once_flag once;
    static TableResult result;
    static std::string where;
    std::call_once(once, [] {
        const od::fluiddata::Source source = od::fluiddata::configured_source();
        auto t = std::make_shared<GasTable>();
        od::fluiddata::read_table(source, t->table);
        where = describe(source);
        result = loaded(std::move(t), where, nullptr);
    });
    if (!result) set(detail, "no gas data in " + where);
    return result;
}

TableResult load_gas_table_file(std::string_view path, std::string* detail) {
    auto t = std::make_shared<GasTable>();
    od::fluiddata::read_table_file(path, t->table);
    return loaded(std::move(t), quoted(path), detail);
}

TableResult load_gas_table_database(std::string_view directory, std::string* detail) {
    auto t = std::make_shared<GasTable>();
    od::fluiddata::read_table_db(directory, od::fluiddata::data_file_name, t->table);
    return loaded(std::move(t), "the fluid database in " + quoted(directory), detail);
}

int component_count(const GasTable& table) { return table.table.ngas; }

// --- mixtures ------------------------------------------------------------------

Result<Mixture> Mixture::make(std::span<const Fraction> fractions, std::string* detail) {
    TableResult t = default_gas_table(detail);
    if (!t) return {Mixture{}, t.status};
    return make(std::move(t.value), fractions, detail);
}

Result<Mixture> Mixture::make(std::initializer_list<Fraction> fractions, std::string* detail) {
    return make(std::span<const Fraction>(fractions.begin(), fractions.size()), detail);
}

Result<Mixture> Mixture::make(std::shared_ptr<const GasTable> table, std::span<const Fraction> fractions,
                              std::string* detail) {
    if (!table) return {Mixture{}, Status::invalid_argument};
    if (fractions.size() > static_cast<std::size_t>(od::max_components)) return {Mixture{}, Status::too_many_components};
    if (fractions.empty()) return {Mixture{}, Status::invalid_composition};
    double sum = 0.0;
    for (const Fraction& f : fractions) {
        if (!finite(f.x) || f.x < 0.0) return {Mixture{}, Status::invalid_composition};
        sum += f.x;
    }
    if (std::fabs(sum - 1.0) > fraction_sum_tolerance) return {Mixture{}, Status::invalid_composition};

    auto d = std::make_shared<detail::MixtureData>();
    const od::fluiddata::Table& tab = table->table;
    d->comps.reserve(fractions.size());
    for (const Fraction& f : fractions) {
        const od::CompName name = od::CompName::from(f.name);
        const int slot = od::fluiddata::find_row(tab, name);
        if (slot < 0) {
            set(detail, std::string(f.name));
            return {Mixture{}, Status::unknown_component};
        }
        d->comps.push_back({name, f.x, &tab.rows[slot], od::fluiddata::getphase(name), name == od::h2o::water_if});
    }
    d->rows = od::MixtureRows{d->comps, water_rows(tab)};
    d->molar_mass = od::mixinfo::mmol(d->rows);
    d->r_specific = od::basefuncs::r_gas / d->molar_mass;
    d->t_min = od::mixinfo::tmin(d->rows);
    d->t_max = od::mixinfo::tmax(d->rows);
    d->condensing = od::solver::has_water(d->rows);
    d->wilke = od::transport::core::wilke_factors(d->rows);
    double all_gas = 0.0;
    for (const od::Component& c : d->comps)
        if (c.phase == 'G') all_gas += c.conc;
    d->all_gas = all_gas;
    for (const od::Component& c : d->comps)
        if (c.water_if && c.conc > od::thermodyn::negligible) {
            d->water = c.conc;
            break;
        }
    for (const od::Component& c : d->comps) {
        if (!(c.conc > od::thermodyn::negligible)) continue;
        if (c.water_if) {
            ++d->water_entries;
        } else if (c.phase == 'G') {
            d->dry_gas += c.conc;
            d->dry_mixing += c.conc * std::log(c.conc);
        } else {
            d->dry_condensed_volume += c.conc * od::basefuncs::v_sl(c.name, c.row);
        }
        if (c.phase == 'G') {
            d->gas_moles += c.conc;
            d->mixing += c.conc * std::log(c.conc / all_gas);
        } else {
            d->condensed_volume += c.conc * od::basefuncs::v_sl(c.name, c.row);
        }
    }
    if (!d->condensing) {
        auto& g = d->start;
        g.t0 = d->t_min;
        g.dt = (d->t_max - d->t_min) / (start_grid_points - 1);
        for (int k = 0; k < start_grid_points; ++k) {
            const double t = k == start_grid_points - 1 ? d->t_max : g.t0 + k * g.dt;
            const auto sums = td::gas_sums(d->rows, t, std::log(t), {true, true, false});
            g.h.push_back(sums.h);
            g.s.push_back(sums.s);
            g.u.push_back(sums.h - d->gas_moles * t);
        }
    }
    d->table = std::move(table);
    Mixture m;
    m.data_ = std::move(d);
    return {std::move(m), Status::ok};
}

int Mixture::size() const { return data_ ? static_cast<int>(data_->comps.size()) : 0; }
double Mixture::molar_mass() const { return data_ ? data_->molar_mass : 0.0; }
double Mixture::t_min() const { return data_ ? data_->t_min : 0.0; }
double Mixture::t_max() const { return data_ ? data_->t_max : 0.0; }
bool Mixture::condensing() const { return data_ && data_->condensing; }

// --- contexts --------------------------------------------------------------------

Context::Context() : core_(std::make_unique<od::Context>()) { core_->water.direct = true; }
Context::~Context() = default;
Context::Context(Context&&) noexcept = default;
Context& Context::operator=(Context&&) noexcept = default;

// --- names -------------------------------------------------------------------------

Result<Pair> pair_from_name(std::string_view n) {
    for (std::size_t i = 0; i < od::ondrel::pair_names.size(); ++i)
        if (od::ondrel::pair_names[i] == n) return {static_cast<Pair>(i), Status::ok};
    return {Pair::PT, Status::unknown_pair};
}

std::string_view name(Pair pair) { return od::ondrel::pair_names[static_cast<std::size_t>(pair)]; }

Result<Property> property_from_name(std::string_view n) {
    for (std::size_t i = 0; i < od::ondrel::property_names.size(); ++i)
        if (od::ondrel::property_names[i] == n) return {static_cast<Property>(i), Status::ok};
    return {Property::P, Status::unknown_property};
}

std::string_view name(Property property) {
    return od::ondrel::property_names[static_cast<std::size_t>(property)];
}

// --- states and properties -------------------------------------------------------------

namespace {

// The units of a pair letter's value.
std::string_view unit_of(char letter) {
    switch (letter) {
    case 'P': return "Pa";
    case 'T': return "K";
    case 'v': return "m3/kg";
    case 'd': return "kg/m3";
    case 's': return "J/(kg K)";
    default: return "J/kg";
    }
}

std::string describe_failure(Status status, const Mixture& mix, std::string_view spec, double in1, double in2) {
    char buf[256];
    const std::string u1(unit_of(spec[0])), u2(unit_of(spec[1]));
    const std::string pair(spec);
    if (status == Status::no_solution || status == Status::outside_data_range)
        std::snprintf(buf, sizeof buf, "no state between %g K and %g K reproduces %s = (%.17g %s, %.17g %s)",
                      mix.t_min(), mix.t_max(), pair.c_str(), in1, u1.c_str(), in2, u2.c_str());
    else
        std::snprintf(buf, sizeof buf, "%s = (%.17g %s, %.17g %s): %s", pair.c_str(), in1, u1.c_str(), in2,
                      u2.c_str(), std::string(message(status)).c_str());
    return buf;
}

}  // namespace

Result<State> solve(Context& ctx, const Mixture& mix, Pair pair, double in1, double in2, std::string* detail) {
    const Result<State> r = detail::solve_state(ctx, mix, pair, in1, in2, detail::SearchMode::fast);
    if (!r && detail && mix.valid() && static_cast<std::size_t>(pair) < od::ondrel::pair_names.size())
        *detail = describe_failure(r.status, mix, od::ondrel::pair_names[static_cast<std::size_t>(pair)], in1, in2);
    return r;
}

// The state is checked against both inputs: the quantities the search
// evaluated at exactly the state are taken as they are (they are what
// quantity() gives there), the others evaluated.
Result<State> detail::solve_state(Context& ctx, const Mixture& mix, Pair pair, double in1, double in2,
                                  SearchMode mode) {
    if (!mix.valid()) return {{}, Status::invalid_argument};
    const auto index = static_cast<std::size_t>(pair);
    if (index >= od::ondrel::pair_names.size()) return {{}, Status::unknown_pair};
    const std::string_view spec = od::ondrel::pair_names[index];
    if (!finite(in1) || !finite(in2)) return {{}, Status::invalid_input};
    const double in[2] = {in1, in2};
    for (int k = 0; k < 2; ++k) {
        const char l = spec[static_cast<std::size_t>(k)];
        if ((l == 'P' || l == 'T' || l == 'v' || l == 'd') && !(in[k] > 0.0)) return {{}, Status::non_positive_input};
    }
    const detail::MixtureData& m = mix.data();
    od::Context& c = ctx.core();
    const Search found = search_state(c, m, spec, in[0], in[1], mode);
    if (found.status != Status::ok) return {found.state, found.status};
    const State& st = found.state;
    if (!finite(st.p) || !finite(st.T) || !(st.p > 0.0) || !(st.T > 0.0)) return {st, Status::no_solution};
    if (st.T < m.t_min || st.T > m.t_max) return {st, Status::outside_data_range};
    for (std::size_t k = 0; k < 2; ++k) {
        const char letter = spec[k];
        if (letter == 'P' || letter == 'T') continue;  // taken as given
        const double got = finite(found.at_state[k]) ? found.at_state[k] : quantity(c, m, letter, st.p, st.T);
        if (!(std::fabs(got - in[k]) <= residual_tolerance * residual_scale(m, letter, in[k], st.T)))
            return {st, Status::no_solution};
    }
    return {st, Status::ok};
}

Result<double> property(Context& ctx, const Mixture& mix, const State& state, Property prop) {
    const Status s = check_state(mix, state);
    if (s != Status::ok) return {0.0, s};
    if (static_cast<std::size_t>(prop) >= od::ondrel::property_names.size()) return {0.0, Status::unknown_property};
    const detail::MixtureData& m = mix.data();
    double value;
    if (!m.condensing && caloric(prop)) {
        const GasState gs = gas_state(m, state.p, state.T, parts_of(prop));
        value = evaluate_one(ctx.core(), m, prop, state.p, state.T, &gs);
    } else {
        value = evaluate_one(ctx.core(), m, prop, state.p, state.T, nullptr);
    }
    if (std::isnan(value)) return {value, Status::not_available};
    return {value, Status::ok};
}

Status properties(Context& ctx, const Mixture& mix, const State& state, std::span<const Property> props,
                  std::span<double> out) {
    if (out.size() != props.size()) return Status::invalid_argument;
    const Status s = check_state(mix, state);
    if (s != Status::ok) return s;
    for (Property prop : props)
        if (static_cast<std::size_t>(prop) >= od::ondrel::property_names.size()) return Status::unknown_property;
    const detail::MixtureData& m = mix.data();
    bool gas = false;
    td::SumParts parts{false, false, false};
    for (Property prop : props) {
        gas = gas || (!m.condensing && caloric(prop));
        const td::SumParts need = parts_of(prop);
        parts = {parts.h || need.h, parts.s || need.s, parts.cp || need.cp};
    }
    GasState gs{};
    if (gas) gs = gas_state(m, state.p, state.T, parts);
    Status status = Status::ok;
    for (std::size_t k = 0; k < props.size(); ++k) {
        out[k] = evaluate_one(ctx.core(), m, props[k], state.p, state.T, gas ? &gs : nullptr);
        if (std::isnan(out[k])) status = Status::not_available;
    }
    return status;
}

Result<AllProperties> properties(Context& ctx, const Mixture& mix, const State& state) {
    const Status s = check_state(mix, state);
    if (s != Status::ok) return {{}, s};
    od::Context& c = ctx.core();
    const detail::MixtureData& m = mix.data();
    const od::MixtureRows& r = m.rows;
    const double p = state.p;
    const double t = state.T;
    AllProperties a{};
    a.P = p;
    a.T = t;
    if (!m.condensing) {
        const GasState gs = gas_state(m, p, t, {});
        a.v = gs.v;
        a.h = gs.h;
        a.s = gs.s;
        a.cv = gs.cv;
    } else {
        a.v = td::v_pt(c, p, t, r);
        a.h = td::h_pt(c, p, t, r);
        a.s = td::s_pt(c, p, t, r);
        a.cv = td::cv_pt(c, p, t, r);
    }
    a.d = 1.0 / a.v;
    a.u = a.h - a.v * p;
    a.dP_dT = dv::dp_dt(p, t);
    a.dP_dv = dv::dp_dv(p, t, r);
    a.d2P_dT2 = dv::d2p_dt2();
    a.d2P_dv2 = dv::d2p_dv2(p, t, r);
    a.d2P_dTdv = dv::d2p_dtdv(p, t, r);
    a.dCv_dT = dv::dcv_dt(t, r);
    a.eta = tr::eta_t(t, r, &mix.data().wilke);
    a.lambda = tr::lambda_pt(c, p, t, r, &mix.data().wilke);
    return {a, Status::ok};
}

}  // namespace ondrel
