// Bad calls that used to change later answers or were "solved" with code 0,
// made through the exported routines exactly as a host made them.
#include <bit>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>
#include <unistd.h>

#include "ondrel/od_fluiddata.h"
#include "tests/robustness/exported.hpp"

namespace {

using namespace robustness;

std::uint64_t bits(double x) { return std::bit_cast<std::uint64_t>(x); }

TEST(BadRequests, AnAbsurdOrUnsolvableRequestLeavesNoNaNInTheCondensingWater) {
    int32_t e[4] = {-1, -1, -1, -1};
    const double liquid_h = prop("PT", 10.0, 50.0, water, "h", e[0]);
    const double liquid_s = prop("PT", 10.0, 50.0, water, "s", e[1]);
    const double flue_t = prop("Ph", 1.0, 100.0, flue, "T", e[2]);
    EXPECT_NEAR(liquid_h, -15760.0010058, 1e-6);
    EXPECT_NEAR(flue_t, 2216.29, 0.005);
    EXPECT_EQ((std::vector<int32_t>(e, e + 3)), (std::vector<int32_t>{0, 0, 0}));

    // A finite but absurd temperature: its vapour term is not finite.
    (void)prop("PT", 1.0, 1e300, flue, "h", e[3]);
    EXPECT_EQ(bits(prop("PT", 10.0, 50.0, water, "h", e[0])), bits(liquid_h));
    EXPECT_EQ(bits(prop("Ph", 1.0, 100.0, flue, "T", e[1])), bits(flue_t));
    EXPECT_EQ(e[0] + e[1], 0);

    // A physical-looking state that no pressure reproduces.
    const HostMix oxygen_water{{"O2", "AR", "H2O(IF)"}, {0.40, 0.13, 0.27}};
    (void)allprops("vu", 3524.24, 397.12, oxygen_water, e[2]);
    EXPECT_EQ(e[2], 5);
    EXPECT_EQ(bits(prop("PT", 10.0, 50.0, water, "s", e[3])), bits(liquid_s));
    EXPECT_EQ(e[3], 0);
}

TEST(BadRequests, NaNInputsOfSolvedPairsFailWithCode5AndTheMarker) {
    const double nan = std::nan("");
    struct Case { const char* spec; double a, b; };
    // With code 0 these used to give the top of the bracket: 5726.85 C, 1000 bar.
    for (const Case c : {Case{"Ph", 1.01325, nan}, Case{"hs", nan, nan}, Case{"Ps", 1.0, nan}, Case{"Pu", nan, 100.0},
                         Case{"vh", 0.5, nan}, Case{"su", 7.0, nan}, Case{"Ts", 25.0, nan}, Case{"vu", nan, 200.0},
                         Case{"Ph", 1.0, INFINITY}, Case{"hs", -INFINITY, 7.0}}) {
        SCOPED_TRACE(std::string(c.spec) + " " + std::to_string(c.a) + " " + std::to_string(c.b));
        const bool p_given = c.spec[0] == 'P', t_given = c.spec[0] == 'T';
        int32_t err = -1;
        const double t = prop(c.spec, c.a, c.b, dry_flue, "T", err);
        EXPECT_EQ(err, 5);
        EXPECT_TRUE(t_given || t == missing - 273.15) << t;  // the marker as a temperature in degrees Celsius
        const double p = prop(c.spec, c.a, c.b, dry_flue, "P", err);
        EXPECT_TRUE(p_given || p == missing * 1e-5) << p;
        // The solver's own entries write the code they used to leave untouched.
        int32_t ierr[2] = {0, 0};
        const double x[2] = {solve(true, c.spec, c.a, c.b, dry_flue, ierr[0]),
                             solve(false, c.spec, c.a, c.b, dry_flue, ierr[1])};
        for (int k = 0; k < 2; ++k) {
            const bool given = k == 0 ? p_given : t_given;
            EXPECT_EQ(ierr[k], given ? 0 : 5) << k;
            EXPECT_TRUE(given || x[k] == missing) << k << " " << x[k];
        }
    }
}

// The gas data file as its header line and its four-line component blocks.
struct GasFile {
    std::string header;
    std::vector<std::string> blocks;
    static GasFile read(const std::string& path) {
        std::ifstream in(path);
        GasFile f;
        std::getline(in, f.header);
        std::vector<std::string> lines;
        for (std::string l; std::getline(in, l);) lines.push_back(l);
        for (std::size_t i = 0; i + 4 <= lines.size(); i += 4)
            f.blocks.push_back(lines[i] + "\n" + lines[i + 1] + "\n" + lines[i + 2] + "\n" + lines[i + 3] + "\n");
        return f;
    }
    std::string name(std::size_t i) const {
        std::string n = blocks[i].substr(0, 8);
        return n.erase(n.find_last_not_of(' ') + 1);
    }
};

void readgasfile(const std::string& path) {
    const std::string padded = (path + std::string(256, ' ')).substr(0, 256);
    readgasfile_(padded.data(), padded.size());
}

TEST(BadRequests, ALoadOfAnotherTableMakesTheNextRequestCheckItsNamesAgain) {
    const std::string original = ONDREL_SOURCE_DATA_DIR "Ondrel.Dat";
    const GasFile data = GasFile::read(original);
    ASSERT_GT(data.blocks.size(), 60u);
    // The same rows in reverse order, without "CO2".
    std::string text = data.header + "\n";
    for (std::size_t i = data.blocks.size(); i-- > 0;)
        if (data.name(i) != "CO2") text += data.blocks[i];
    const std::string other =
        (std::filesystem::temp_directory_path() / ("ondrel-reversed-gas-table-" + std::to_string(getpid()))).string();
    std::ofstream(other) << text;

    int32_t e[5] = {-1, -1, -1, -1, -1};
    // The flue gas passed before, but the new table has no "CO2".
    const double flue_h = prop("PT", 1.01325, 300.0, dry_flue, "h", e[0]);
    readgasfile(other);
    EXPECT_EQ(prop("PT", 1.01325, 300.0, dry_flue, "h", e[1]), missing);
    // Air stored, then its rows move: computed with its new rows, the result is the same.
    readgasfile(original);
    const double air_h = prop("PT", 1.01325, 300.0, air, "h", e[2]);
    readgasfile(other);
    EXPECT_EQ(bits(prop("PT", 1.01325, 300.0, air, "h", e[3])), bits(air_h));
    readgasfile(original);
    EXPECT_EQ(bits(prop("PT", 1.01325, 300.0, dry_flue, "h", e[4])), bits(flue_h));
    EXPECT_EQ((std::vector<int32_t>(e, e + 5)), (std::vector<int32_t>{0, 1, 0, 0, 0}));
    std::filesystem::remove(other);
}

}  // namespace
