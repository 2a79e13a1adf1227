// Runs the example programs and checks what they print.
#include <array>
#include <cstdio>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

// Standard output and exit status of a program.
std::pair<std::string, int> run(const char* exe) {
    std::string out;
    FILE* pipe = popen(exe, "r");
    if (pipe == nullptr) return {out, -1};
    char buf[4096];
    for (std::size_t k; (k = std::fread(buf, 1, sizeof buf, pipe)) > 0;) out.append(buf, k);
    const int status = pclose(pipe);
    return {out, WIFEXITED(status) ? WEXITSTATUS(status) : -1};
}

void expect_program(const char* exe, std::initializer_list<const char*> expected) {
    const auto [out, status] = run(exe);
    EXPECT_EQ(status, 0) << out;
    EXPECT_EQ(out.rfind(" ****** Hello from the Ondrel      ******\n", 0), 0u) << out;
    for (const char* text : expected) EXPECT_NE(out.find(text), std::string::npos) << text << "\n" << out;
}

TEST(Examples, CProgramRoundTripsTheTemperature) {
    expect_program(PROP_C_EXE, {"back to T = 25.000000 C (error 0)", "\n  v         0.844696527\n",
                                "od_allprops error 0", "(error 3)"});
}

TEST(Examples, FortranProgramCallsTheRoutinesThroughTheModule) {
    expect_program(PROP_FORTRAN_EXE, {"back to T =    25.000000 C, error 0", "\n  v          8.446965273E-01\n",
                                      "od_allprops error 0"});
}

TEST(Examples, FlueGasCoolingPrintsTheTableDewPointAndChecks) {
    const auto [out, status] = run(FLUE_GAS_COOLING_EXE);
    EXPECT_EQ(status, 0) << out;
    // T, h, s, cp, cp_eq, density, condensed, viscosity, conductivity
    std::vector<std::array<double, 9>> rows;
    double dew = -1.0;
    std::istringstream lines(out);
    for (std::string l; std::getline(lines, l);) {
        std::array<double, 9> w{};
        if (std::sscanf(l.c_str(), "%lf %lf %lf %lf %lf %lf %lf %lf %lf", &w[0], &w[1], &w[2], &w[3], &w[4], &w[5],
                        &w[6], &w[7], &w[8]) == 9)
            rows.push_back(w);
        std::sscanf(l.c_str(), "dew point: %lf C", &dew);
        EXPECT_EQ(l.find(": error"), std::string::npos) << l;
    }
    ASSERT_EQ(rows.size(), 19u) << out;
    EXPECT_TRUE(rows.front()[0] == 1200.0 && rows.back()[0] == 20.0);
    EXPECT_TRUE(dew > 45.0 && dew < 55.0) << dew;  // 12 % water at 1.01325 bar saturates near 49.5 C
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto& w = rows[i];
        // No condensate above the dew point, and there (below 800 C, where the vapour is
        // IF97's own) the equilibrium cp is the frozen one; below it the latent heat
        // makes it several times larger.
        if (w[0] > dew) {
            EXPECT_EQ(w[6], 0.0) << w[0];
            if (w[0] < 800.0) {
                EXPECT_NEAR(w[4], w[3], 1e-4 * w[3]) << w[0];
            }
        } else {
            EXPECT_GT(w[6], 0.0) << w[0];
            EXPECT_GT(w[4], 2.0 * w[3]) << w[0];
        }
        // Denser and less viscous as it cools; the condensate grows.
        EXPECT_TRUE(i == 0 || (w[5] > rows[i - 1][5] && w[7] < rows[i - 1][7] && w[6] >= rows[i - 1][6])) << w[0];
    }
    EXPECT_NE(out.find("all 19 temperatures given back by both"), std::string::npos) << out;
    EXPECT_NE(out.find("checks: 0 table errors, 0 not given back"), std::string::npos);
}

// The gas table as the exported routines list it: every row with its phase
// from the name and the limits od_info_ gives for the row alone.
TEST(Examples, GasTableListsEveryComponentWithItsPhaseAndLimits) {
    const auto [out, status] = run(GAS_TABLE_EXE);
    EXPECT_EQ(status, 0) << out;
    EXPECT_NE(out.find("63 components\n"), std::string::npos) << out;
    for (const char* row : {"\n1    N2           G       0.02801348     -73.15    5726.85\n",
                            "AL2O3(S)     S", "SIO2(L)      L", "H2O(IF)      G"})
        EXPECT_NE(out.find(row), std::string::npos) << row << "\n" << out;
}

// The README's programs: C, C++ and Fortran against the shared library, C
// against the static one; each prints the same values.
TEST(Examples, ReadmeProgramsPrintTheEnthalpyAndEntropyOfAir) {
    for (const char* exe : {README_AIR_C_EXE, README_AIR_CPP_EXE, README_AIR_FORTRAN_EXE, README_AIR_STATIC_EXE}) {
        const auto [out, status] = run(exe);
        EXPECT_EQ(status, 0) << exe;
        EXPECT_NE(out.find("25 C: h = 0.0000 kJ/kg, s = 6.8597 kJ/(kg K)\n"), std::string::npos) << exe << "\n" << out;
    }
}

}  // namespace
