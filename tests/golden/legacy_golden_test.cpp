// The legacy exports, bit for bit: a broad, fixed sequence of requests (every
// export of the mixture model, every input pair, dry, ash-laden and condensing
// mixtures from 10 C to 1800 C, error cases, repeated and interleaved
// requests so that the saved values of the last call matter) is run in one
// process from its load-time state, and every result is compared, as hex
// floats, with tests/data/golden/legacy_outputs.txt.
//
// To record the file anew (only when a change of the legacy answers is
// intended, in a commit that says why):
//   ONDREL_GOLDEN_RECORD=tests/data/golden/legacy_outputs.txt build/tests/golden/legacy_golden_test
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ondrel/if97_qv.h"
#include "ondrel/od_thermo.h"
#include "ondrel/ondrel.h"

namespace {

constexpr std::size_t width = 10;  // width of every name text handed to the exports

struct Mix {
    std::string label;
    std::vector<std::string> names;
    std::vector<double> conc;
    std::string packed() const {
        std::string t(names.size() * width, ' ');
        for (std::size_t i = 0; i < names.size(); ++i) t.replace(i * width, names[i].size(), names[i]);
        return t;
    }
    int32_t n() const { return static_cast<int32_t>(names.size()); }
};

const std::vector<Mix>& mixtures() {
    static const std::vector<Mix> m = {
        {"air", {"N2", "O2", "AR"}, {0.7809, 0.2095, 0.0096}},
        {"dry_flue", {"N2", "CO2", "H2O", "O2", "AR"}, {0.71, 0.13, 0.12, 0.035, 0.005}},
        {"wet_flue", {"N2", "CO2", "H2O(IF)", "O2", "AR"}, {0.71, 0.13, 0.12, 0.035, 0.005}},
        {"ash_flue", {"N2", "CO2", "H2O", "O2", "AL2O3(S)", "SIO2(L)"}, {0.70, 0.13, 0.12, 0.03, 0.012, 0.008}},
        {"water", {"H2O(IF)"}, {1.0}},
        {"humid_air", {"N2", "O2", "AR", "H2O(IF)"}, {0.7578, 0.2033, 0.0093, 0.0296}},
        {"fuel", {"CH4", "CO", "H2", "CO2", "N2"}, {0.6, 0.1, 0.1, 0.1, 0.1}},
    };
    return m;
}

const char* const pairs[] = {"TP", "Pv", "Pd", "Ph", "Ps", "Pu", "Tv", "Td", "Th", "Ts",
                             "Tu", "vh", "vs", "vu", "dh", "ds", "du", "hs", "su"};
const char* const property_names[] = {"P", "T", "v", "d", "h", "s", "u", "cv", "dP_dT", "dP_dv",
                                      "d2P_dT2", "d2P_dv2", "d2P_dTdv", "dCv_dT", "eta", "lambda"};

// Collects the output lines: a label, then every value as a hex float.
class Recorder {
public:
    void line(const std::string& label, std::initializer_list<double> values, int err) {
        std::string s = label;
        char buf[64];
        for (double v : values) {
            std::snprintf(buf, sizeof buf, " %a", v);
            s += buf;
        }
        std::snprintf(buf, sizeof buf, " e%d", err);
        lines_.push_back(s + buf);
    }
    const std::vector<std::string>& lines() const { return lines_; }

private:
    std::vector<std::string> lines_;
};

struct All {
    double o[16];
    int32_t err;
};

All allprops(const char* spec, double a, double b, const Mix& m) {
    All r{};
    const std::string names = m.packed();
    const int32_t n = m.n();
    double* o = r.o;
    od_allprops_(spec, &a, &b, &n, names.data(), m.conc.data(), &o[0], &o[1], &o[2], &o[3], &o[4], &o[5],
                 &o[6], &o[7], &o[8], &o[9], &o[10], &o[11], &o[12], &o[13], &o[14], &o[15], &r.err,
                 std::strlen(spec), width);
    return r;
}

double prop(const char* spec, double a, double b, const Mix& m, const char* out, int32_t& err) {
    const std::string names = m.packed();
    const int32_t n = m.n();
    return od_prop_(spec, &a, &b, &n, names.data(), m.conc.data(), out, &err, std::strlen(spec), width,
                    std::strlen(out));
}

void record_all(Recorder& rec, const std::string& label, const All& r) {
    const double* o = r.o;
    rec.line(label, {o[0], o[1], o[2], o[3], o[4], o[5], o[6], o[7], o[8], o[9], o[10], o[11], o[12], o[13],
                     o[14], o[15]},
             r.err);
}

// The input values of pair `spec` at the state whose properties are o
// (P, T, v, d, h, s, u in interface units).
std::pair<double, double> inputs_of(const char* spec, const double* o) {
    auto value = [o](char c) {
        switch (c) {
        case 'P': return o[0];
        case 'T': return o[1];
        case 'v': return o[2];
        case 'd': return o[3];
        case 'h': return o[4];
        case 's': return o[5];
        default: return o[6];
        }
    };
    return {value(spec[0]), value(spec[1])};
}

// Every pair at a grid of states of every mixture, through od_allprops_, with
// single-property requests interleaved.
void pair_requests(Recorder& rec) {
    const double temperatures[] = {10.0, 30.0, 45.0, 60.0, 100.0, 250.0, 600.0, 1000.0, 1400.0, 1800.0};
    const double pressures[] = {0.5, 1.01325, 5.0};
    for (const Mix& m : mixtures()) {
        for (double p : pressures) {
            for (double t : temperatures) {
                const std::string at = m.label + " " + std::to_string(p) + " " + std::to_string(t);
                const All base = allprops("PT", p, t, m);
                record_all(rec, at + " PT", base);
                for (const char* spec : pairs) {
                    const auto [a, b] = inputs_of(spec, base.o);
                    record_all(rec, at + " " + spec, allprops(spec, a, b, m));
                }
                // The same request twice (the stored state), then single properties.
                record_all(rec, at + " PT again", allprops("PT", p, t, m));
                for (const char* name : property_names) {
                    int32_t err = 0;
                    const double v = prop("Ph", base.o[0], base.o[4], m, name, err);
                    rec.line(at + " Ph " + name, {v}, err);
                }
            }
        }
    }
}

// The state functions, information and solver exports on the stored composition.
void state_function_requests(Recorder& rec) {
    for (const Mix& m : mixtures()) {
        const std::string names = m.packed();
        const int32_t n = m.n();
        for (const char* info : {"M_mol", "T_min", "T_max", "T_mix"}) {
            int32_t err = 0;
            const double v = od_info_(&n, names.data(), m.conc.data(), info, &err, width, std::strlen(info));
            rec.line(m.label + " info " + info, {v}, err);
        }
        for (double t : {283.15, 318.15, 373.15, 1273.15, 2073.15}) {
            for (double p : {50000.0, 101325.0, 2.0e6}) {
                const double* c = m.conc.data();
                const double* pp = &p;
                const double* tt = &t;
                rec.line(m.label + " state " + std::to_string(p) + " " + std::to_string(t),
                         {h_pt_(pp, tt, &n, names.data(), c, width), s_pt_(pp, tt, &n, names.data(), c, width),
                          cv_pt_(pp, tt, &n, names.data(), c, width), v_pt_(pp, tt, &n, names.data(), c, width),
                          u_pt_(pp, tt, &n, names.data(), c, width), x_gas_(pp, tt, &n, names.data(), c, width),
                          dp_dv_(pp, tt, &n, names.data(), c, width), d2p_dv2_(pp, tt, &n, names.data(), c, width),
                          d2p_dtdv_(pp, tt, &n, names.data(), c, width), dcv_dt_(tt, &n, names.data(), c, width),
                          eta_t_(tt, &n, names.data(), c, width), lambda_pt_(pp, tt, &n, names.data(), c, width),
                          tmin_(&n, names.data(), width), tmax_(&n, names.data(), width),
                          mmol_(&n, names.data(), c, width)},
                         0);
            }
        }
        for (const char* spec : {"Ph", "Ts", "vu", "hs", "Xy"}) {
            const double a = spec[0] == 'v' ? 0.9 : (spec[0] == 'h' ? 400.0 : (spec[0] == 'T' ? 80.0 : 1.2));
            const double b = spec[1] == 's' ? 7.2 : (spec[1] == 'u' ? 250.0 : 300.0);
            int32_t ep = 0, et = 0;
            const double p = get_p_(spec, &a, &b, &n, names.data(), m.conc.data(), &ep, 2, width);
            const double t = get_t_(spec, &a, &b, &n, names.data(), m.conc.data(), &et, 2, width);
            rec.line(m.label + " get_pt " + spec, {p, t}, ep * 100 + et);
        }
    }
}

// Refused requests, each followed by a valid one so that what they leave behind shows.
void error_requests(Recorder& rec) {
    const Mix& flue = mixtures()[2];
    const Mix unknown{"unknown", {"N2", "XX"}, {0.5, 0.5}};
    const Mix overlong{"overlong", {"N2", "CO2LONGNAME"}, {0.5, 0.5}};
    const Mix empty{"empty", {}, {}};
    for (const Mix* m : {&unknown, &overlong, &empty}) {
        record_all(rec, m->label + " PT", allprops("PT", 1.0, 25.0, *m));
        record_all(rec, m->label + " then flue", allprops("Ph", 1.0, 100.0, flue));
    }
    int32_t err = 0;
    rec.line("flue unknown property", {prop("PT", 1.0, 25.0, flue, "cp", err)}, err);
    err = 0;
    rec.line("flue unknown pair", {prop("Xh", 1.0, 25.0, flue, "T", err)}, err);
    err = 0;
    rec.line("flue lower-case pair", {prop("ph", 1.0, 25.0, flue, "T", err)}, err);
    const Mix dry = mixtures()[1];
    err = 0;
    rec.line("dry Th", {prop("Th", 25.0, 100.0, dry, "P", err)}, err);
    for (int32_t n : {-1, 251}) {
        const std::string names = flue.packed();
        int32_t e = 0;
        const double a = 1.0, b = 25.0;
        const double v = od_prop_("PT", &a, &b, &n, names.data(), flue.conc.data(), "h", &e, 2, width, 1);
        rec.line("count " + std::to_string(n), {v}, e);
    }
    // Out-of-bracket values and states far outside the data.
    for (const char* spec : {"Ph", "Ps", "Pu", "vh", "vs", "hs"}) {
        int32_t e = 0;
        const double v = prop(spec, 1.0, 1.0e6, flue, "T", e);
        rec.line(std::string("flue huge ") + spec, {v}, e);
    }
    record_all(rec, "flue 1 K", allprops("PT", 1.0, -272.15, flue));
    record_all(rec, "flue 5000 C", allprops("PT", 1.0, 5000.0, flue));
    record_all(rec, "flue after", allprops("PT", 1.0, 25.0, flue));
}

// The IF97 adapter as the condensing water uses it.
void adapter_requests(Recorder& rec) {
    for (const char* spec : {"PT", "Tq", "Pq", "Ph", "Ps"}) {
        for (const char* property : {"h", "s", "v", "d", "cp", "cv", "eta", "lambda", "x"}) {
            const double a = spec[0] == 'P' ? 1.5 : 80.0;
            const double b = spec[1] == 'T' ? 120.0 : (spec[1] == 'q' ? 0.3 : (spec[1] == 'h' ? 1500.0 : 4.5));
            char message[80];
            const double v = if97_prop_(spec, &a, &b, property, message, 2, std::strlen(property), sizeof message);
            rec.line(std::string("if97 ") + spec + " " + property, {v}, message[0] == 'N' ? 0 : 1);
        }
    }
}

std::vector<std::string> run_requests() {
    Recorder rec;
    pair_requests(rec);
    state_function_requests(rec);
    error_requests(rec);
    adapter_requests(rec);
    return rec.lines();
}

const char* const golden_file = ONDREL_TEST_DATA_DIR "golden/legacy_outputs.txt";

TEST(LegacyGolden, EveryExportAnswersBitForBitAsRecorded) {
    const std::vector<std::string> got = run_requests();
    if (const char* out = std::getenv("ONDREL_GOLDEN_RECORD")) {
        std::ofstream f(out);
        for (const std::string& l : got) f << l << '\n';
        GTEST_SKIP() << "recorded " << got.size() << " lines to " << out;
    }
    std::ifstream f(golden_file);
    ASSERT_TRUE(f) << golden_file;
    std::vector<std::string> want;
    for (std::string l; std::getline(f, l);) want.push_back(l);
    ASSERT_EQ(got.size(), want.size());
    int shown = 0;
    for (std::size_t i = 0; i < got.size() && shown < 10; ++i) {
        if (got[i] != want[i]) {
            ADD_FAILURE() << "line " << i + 1 << "\n  got:  " << got[i] << "\n  want: " << want[i];
            ++shown;
        }
    }
}

}  // namespace
