// The mixture model's exported calls with arbitrary input pairs, counts,
// name widths, names, concentrations, values and property names; real names
// part of the time, so that condensing water and the nested solutions run.
// Checked: the codes are those documented, failures carry the marker, and a
// pair that must be solved is never "solved" from a NaN or infinite input.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "fluiddata/od_types.hpp"
#include "host/ftn_text.hpp"
#include "ondrel/od_thermo.h"
#include "ondrel/ondrel.h"
#include "tests/fuzz/fuzz_input.hpp"
#include "thermo/od_h2o.hpp"

namespace {

constexpr double missing = -8888.8;

// A mixture in the host layout, read from the input.
struct Mixture {
    int32_t n = 0;
    std::size_t width = 8;
    std::string names;  // n texts of width characters
    std::vector<double> conc;
    bool water = false;      // some name is "H2O(IF)"
    bool all_zero = true;    // every concentration is 0.0 (the repeated-request shortcut applies)

    explicit Mixture(fuzz::Input& in) {
        const int b = in.byte();
        n = b < 240 ? b % 8 : b == 240 ? 250 : b == 241 ? 251 : 241 - b;  // 0..7, 250, 251, or -1..-14
        width = in.byte() % 21;
        const int stored = std::max(0, std::min(n, 250));
        for (int i = 0; i < stored; ++i) {
            std::string name = in.pick({"N2", "O2", "AR", "CO2", "H2O", "H2O(IF)", "H2O(L)", "C(S)", "SIO2(L)",
                                        "AL2O3(S)", "CH4", "CO", "H2", "SO2", "NO", "HE", "H2O(IF)  ", "n2"},
                                       24);
            name.resize(width, ' ');
            names += name;
            water = water || od::CompName::from(ftn::view(names.data() + names.size() - width, width)) ==
                                 od::h2o::water_if;
            conc.push_back(in.number());
            all_zero = all_zero && conc.back() == 0.0;
        }
        if (names.empty()) names.assign(1, ' ');
        if (conc.empty()) conc.push_back(0.0);
    }
};

// The two letters of an input pair as the library reads them (a NUL ends the text).
std::string letters(const std::string& spec) {
    std::string s(ftn::view(spec.data(), spec.size()).substr(0, 2));
    s.resize(2, ' ');
    return s;
}

// A pair whose pressure (which = 'P') or temperature ('T') is found by a search.
bool searched(const std::string& s, char which, bool water) {
    if (s[0] == which || s[1] == which) return false;
    for (const char* p : {"vh", "vs", "vu", "dh", "ds", "du", "hs", "su"})
        if (s == p) return true;
    if (which == 'P') return s == "Ts" || (water && (s == "Tv" || s == "Td" || s == "Th" || s == "Tu"));
    return s == "Ph" || s == "Ps" || s == "Pu" || (water && (s == "Pv" || s == "Pd"));
}

void request(fuzz::Input& in) {
    const std::string spec = in.pick({"PT", "TP", "Pv", "Pd", "Ph", "Ps", "Pu", "Tv", "Td", "Th", "Ts", "Tu", "vh",
                                      "vs", "vu", "dh", "ds", "du", "hs", "su", "hv", "vP"},
                                     4);
    const double a = in.number(), b = in.number();
    const Mixture m(in);
    const int kind = in.byte() % 4;
    const std::string s = letters(spec);
    const bool bad_input = !std::isfinite(a) || !std::isfinite(b);
    int32_t err = -1;
    if (kind == 0) {
        const std::string out = in.pick({"P", "T", "v", "d", "h", "s", "u", "cv", "dP_dT", "dP_dv", "d2P_dT2",
                                         "d2P_dv2", "d2P_dTdv", "dCv_dT", "eta", "lambda", "cp"},
                                        8);
        const double x = od_prop_(spec.data(), &a, &b, &m.n, m.names.data(), m.conc.data(), out.data(), &err,
                                  spec.size(), m.width, out.size());
        fuzz::check(err >= 0 && err <= 7 && err != 6, "od_prop_ code");
        fuzz::check((err != 1 && err != 3) || x == missing, "od_prop_ failure without the marker");
    } else if (kind == 1) {
        std::array<double, 16> o;
        od_allprops_(spec.data(), &a, &b, &m.n, m.names.data(), m.conc.data(), &o[0], &o[1], &o[2], &o[3], &o[4],
                     &o[5], &o[6], &o[7], &o[8], &o[9], &o[10], &o[11], &o[12], &o[13], &o[14], &o[15], &err,
                     spec.size(), m.width);
        fuzz::check(err >= 0 && err <= 7 && err != 3 && err != 6, "od_allprops_ code");
        for (double x : o) fuzz::check(err != 1 || x == missing, "od_allprops_ code 1 without the marker");
    } else {
        const bool pressure = kind == 2;
        const int32_t carried = in.byte() % 8;
        err = carried;
        const double x = (pressure ? get_p_ : get_t_)(spec.data(), &a, &b, &m.n, m.names.data(), m.conc.data(),
                                                      &err, spec.size(), m.width);
        // Intended: the retry of "vu" with water clears a carried code before each new solution.
        const bool retried = pressure && s == "vu" && m.water;
        fuzz::check(err == carried || err == 1 || err == 2 || err == 4 || err == 5 || err == 7 || (retried && err == 0),
                    "get_p_/get_t_ code");
        if (err != 1 && bad_input && searched(s, pressure ? 'P' : 'T', m.water))
            fuzz::check(err == 5 && x == missing, "a NaN or infinite input searched without code 5");
        return;
    }
    // Requests: a searched pair with a bad input fails (the shortcut of a
    // repeated all-zero mixture aside, which reuses the last state).
    const bool no_pressure = !m.water && (s == "Th" || s == "Tu");
    if (err != 1 && err != 3 && bad_input && !m.all_zero && !no_pressure &&
        (searched(s, 'P', m.water) || searched(s, 'T', m.water)))
        fuzz::check(err == 5, "a NaN or infinite input solved without code 5");
}

od_property_fn state_function(int k) {
    static const od_property_fn functions[] = {h_pt_, s_pt_, v_pt_, u_pt_};
    return functions[k % 4];
}

void other_calls(fuzz::Input& in) {
    const Mixture m(in);
    const double p = in.number(), t = in.number();
    int32_t err = -1;
    const std::string info = in.pick({"M_mol", "T_min", "T_max"}, 8);
    const double x = od_info_(&m.n, m.names.data(), m.conc.data(), info.data(), &err, m.width, info.size());
    fuzz::check(err == 0 || err == 1 || err == 6, "od_info_ code");
    fuzz::check(err == 0 || x == missing, "od_info_ failure without the marker");
    for (auto f : {h_pt_, s_pt_, v_pt_, u_pt_, cv_pt_}) (void)f(&p, &t, &m.n, m.names.data(), m.conc.data(), m.width);
    const int32_t which = in.byte() % 3;
    double lo = in.number(), hi = in.number();
    const double target = in.number(), tol = in.number();
    int32_t ierr = 0;
    (void)brent_(state_function(in.byte()), &which, &p, &target, &lo, &hi, &tol, &m.n, m.names.data(),
                 m.conc.data(), &ierr, m.width);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input in(data, size);
    const int calls = 1 + in.byte() % 4;
    for (int k = 0; k < calls && !in.at_end(); ++k) {
        if (in.byte() % 4 == 3)
            other_calls(in);
        else
            request(in);
    }
    return 0;
}
