// Runs the example programs and checks their output.
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <vector>

#include <gtest/gtest.h>

namespace {

struct Output {
    std::string out;
    int status = -1;
};

Output run(const char* exe) {
    Output r;
    FILE* pipe = popen(exe, "r");
    if (pipe == nullptr) return r;
    char buf[4096];
    std::size_t k;
    while ((k = fread(buf, 1, sizeof buf, pipe)) > 0) r.out.append(buf, k);
    const int st = pclose(pipe);
    r.status = WIFEXITED(st) ? WEXITSTATUS(st) : -1;
    return r;
}

std::vector<std::string> lines(const std::string& s) {
    std::vector<std::string> v;
    std::istringstream in(s);
    for (std::string l; std::getline(in, l);) v.push_back(l);
    return v;
}

constexpr const char* greeting = " ****** Hello from the Ondrel      ******";

TEST(Examples, CProgramRoundTripsTheTemperature) {
    const Output r = run(PROP_C_EXE);
    EXPECT_EQ(r.status, 0) << r.out;
    EXPECT_EQ(lines(r.out).at(0), greeting);
    EXPECT_NE(r.out.find("back to T = 25.000000 C (error 0)"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("  v         0.844696527"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("od_allprops error 0"), std::string::npos);
    EXPECT_NE(r.out.find("(error 3)"), std::string::npos);
}

TEST(Examples, FortranProgramCallsTheRoutinesAsExternalProcedures) {
    const Output r = run(PROP_FORTRAN_EXE);
    EXPECT_EQ(r.status, 0) << r.out;
    EXPECT_EQ(lines(r.out).at(0), greeting);
    EXPECT_NE(r.out.find("back to T =    25.000000 C, error 0"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("  v          8.446965273E-01"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("od_allprops error 0"), std::string::npos);
}

struct Row {
    double t, h, s, cv, d, x_gas, eta, lambda;
};

TEST(Examples, FlueGasCoolingPrintsTheTableDewPointAndChecks) {
    const Output r = run(FLUE_GAS_COOLING_EXE);
    EXPECT_EQ(r.status, 0) << r.out;
    std::vector<Row> rows;
    double dew = -1.0;
    for (const std::string& l : lines(r.out)) {
        Row w{};
        if (std::sscanf(l.c_str(), "%lf %lf %lf %lf %lf %lf %lf %lf", &w.t, &w.h, &w.s, &w.cv,
                        &w.d, &w.x_gas, &w.eta, &w.lambda) == 8)
            rows.push_back(w);
        std::sscanf(l.c_str(), "dew point: %lf C", &dew);
    }
    ASSERT_EQ(rows.size(), 19u) << r.out;
    EXPECT_EQ(rows.front().t, 1200.0);
    EXPECT_EQ(rows.back().t, 20.0);
    // Water at 12 % of 1.01325 bar saturates near 49.5 C.
    EXPECT_GT(dew, 45.0) << r.out;
    EXPECT_LT(dew, 55.0);
    for (std::size_t i = 1; i < rows.size(); ++i) {
        EXPECT_GT(rows[i].d, rows[i - 1].d) << rows[i].t;   // denser as it cools
        EXPECT_LT(rows[i].eta, rows[i - 1].eta) << rows[i].t;
    }
    for (const Row& w : rows) {
        if (w.t > dew) EXPECT_EQ(w.x_gas, 1.0) << w.t;
        else EXPECT_LT(w.x_gas, 0.99) << w.t;
        EXPECT_GT(w.cv, 0.5) << w.t;
        EXPECT_GT(w.lambda, 10.0) << w.t;
    }
    // A request that returned another root must reproduce the given value.
    for (const std::string& l : lines(r.out)) {
        double t = 0, back = 0, again = 0, given = 0;
        char spec[3] = {}, letter[2] = {};
        if (std::sscanf(l.c_str(), "  %2s at %lf C gives T = %lf C, where %1s = %lf (given %lf)", spec,
                        &t, &back, letter, &again, &given) == 6) {
            EXPECT_NEAR(again, given, 1e-3 * std::fabs(given) + 1e-6) << l;
        }
        EXPECT_EQ(l.find(" error "), std::string::npos) << l;
    }
    EXPECT_NE(r.out.find("checks: 0 table errors"), std::string::npos);
}

}  // namespace
