#include "fluiddata/od_fieldread.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <string>
#include <vector>

namespace fr = od::fieldread;

namespace {

struct FieldCase {
    std::string edit;   // F10.3, E15.8, F12.8, F10.5 or I2
    std::string field;  // the columns of the field
    bool fault = false;
    double value = 0.0;
};

// Splits `edit,"field",value` (the field may hold commas and blanks).
std::vector<FieldCase> load_cases() {
    std::ifstream in(ONDREL_TEST_DATA_DIR "fluiddata/formatted_fields.csv");
    std::vector<FieldCase> cases;
    std::string line;
    std::getline(in, line);  // source comment
    std::getline(in, line);  // column names
    while (std::getline(in, line)) {
        const auto q1 = line.find('"');
        const auto q2 = line.rfind('"');
        if (q1 == std::string::npos || q2 == q1) continue;
        FieldCase c;
        c.edit = line.substr(0, q1 - 1);
        c.field = line.substr(q1 + 1, q2 - q1 - 1);
        const std::string v = line.substr(q2 + 2);
        c.fault = v == "fault";
        if (!c.fault) c.value = std::stod(v);
        cases.push_back(c);
    }
    return cases;
}

// Width and decimals of an edit descriptor such as "E15.8" or "I2".
int decimals_of(const std::string& edit) {
    const auto dot = edit.find('.');
    return dot == std::string::npos ? 0 : std::stoi(edit.substr(dot + 1));
}

class FormattedFields : public ::testing::TestWithParam<FieldCase> {};

TEST_P(FormattedFields, ReadAsFormattedInput) {
    const FieldCase& c = GetParam();
    if (c.edit == "I2") {
        const auto v = fr::integer(c.field);
        ASSERT_EQ(!v.has_value(), c.fault) << '"' << c.field << '"';
        if (v) {
            EXPECT_EQ(*v, static_cast<int>(c.value)) << '"' << c.field << '"';
        }
        return;
    }
    const auto v = fr::real(c.field, decimals_of(c.edit));
    ASSERT_EQ(!v.has_value(), c.fault) << c.edit << " \"" << c.field << '"';
    if (!v) return;
    EXPECT_EQ(*v, c.value) << c.edit << " \"" << c.field << '"';
    EXPECT_EQ(std::signbit(*v), std::signbit(c.value)) << c.edit << " \"" << c.field << '"';
}

INSTANTIATE_TEST_SUITE_P(CompilerReference, FormattedFields, ::testing::ValuesIn(load_cases()));

TEST(FieldRead, ReferenceTableIsPresent) { EXPECT_GT(load_cases().size(), 60u); }

TEST(FieldRead, NonFiniteValuesAreFaults) {
    for (const char* f : {"Inf", "-Infinity", "NaN", "1E999", "1.0D+400", "9999999E400"})
        EXPECT_FALSE(fr::real(f, 8).has_value()) << f;
}

TEST(FieldRead, TinyValuesUnderflowToZero) {
    EXPECT_EQ(*fr::real("1E-999", 3), 0.0);
    EXPECT_TRUE(std::signbit(*fr::real("-1E-999", 3)));
}

TEST(FieldRead, MalformedMantissasAndExponentsAreFaults) {
    for (const char* f : {"E5", "--1", "+-1", "1.5E", "1.5E+", "1e5e5", "1..5", "\t1.5", "1.5\r", "0x10"})
        EXPECT_FALSE(fr::real(f, 3).has_value()) << f;
    EXPECT_FALSE(fr::real(std::string_view("1\0" "5", 3), 3).has_value());
}

TEST(FieldRead, HugeExponentDigitsDoNotOverflow) {
    EXPECT_FALSE(fr::real("1E99999999999999999999", 0).has_value());
    EXPECT_EQ(*fr::real("1E-99999999999999999999", 0), 0.0);
}

TEST(FieldRead, IntegersRejectAnythingButDigits) {
    EXPECT_EQ(*fr::integer(" 7"), 7);
    EXPECT_EQ(*fr::integer("1 2"), 12);
    for (const char* f : {"+", "1.", "1E2", "x", "99999999999"}) EXPECT_FALSE(fr::integer(f).has_value()) << f;
}

TEST(FieldCursor, ShortLineReadsAsPaddedWithBlanks) {
    fr::Cursor c{"AB  1.5"};
    std::string_view name;
    double x = -1.0, y = -1.0;
    int n = -1;
    ASSERT_TRUE(c.text(2, name));
    ASSERT_TRUE(c.real(5, 3, x));
    ASSERT_TRUE(c.real(10, 3, y));  // wholly past the end: blank, so zero
    ASSERT_TRUE(c.integer(2, n));
    EXPECT_EQ(name, "AB");
    EXPECT_EQ(x, 1.5);
    EXPECT_EQ(y, 0.0);
    EXPECT_EQ(n, 0);
}

TEST(FieldCursor, NothingIsAssignedAfterTheFirstFault) {
    fr::Cursor c{"  1.0  xx  3.0"};
    double a = -1.0, b = -1.0, d = -1.0;
    EXPECT_TRUE(c.real(5, 1, a));
    EXPECT_FALSE(c.real(4, 1, b));
    EXPECT_FALSE(c.real(5, 1, d));  // a valid field after the fault stays unread
    EXPECT_EQ(a, 1.0);
    EXPECT_EQ(b, -1.0);
    EXPECT_EQ(d, -1.0);
    EXPECT_FALSE(c.ok);
}

TEST(FieldCursor, SkippedColumnsAreNotRead) {
    fr::Cursor c{"12x4"};
    int a = -1, b = -1;
    EXPECT_TRUE(c.integer(2, a));
    c.skip(1);
    EXPECT_TRUE(c.integer(2, b));
    EXPECT_EQ(a, 12);
    EXPECT_EQ(b, 4);
}

}  // namespace
