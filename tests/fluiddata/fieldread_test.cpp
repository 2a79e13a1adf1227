// The fixed-column field reader.
#include "fluiddata/od_fieldread.hpp"

#include <cmath>

#include "tests/fluiddata/gas_files.hpp"

namespace fr = od::fieldread;

namespace {

// Columns: edit descriptor (Fw.d, Ew.d or Iw), field text, value or "fault".
class FormattedFields : public ::testing::TestWithParam<gasfiles::CsvRow> {};

TEST_P(FormattedFields, ReadAsFormattedInput) {
    const gasfiles::CsvRow& c = GetParam();
    SCOPED_TRACE(c.text);
    std::optional<double> v;
    if (c[0][0] == 'I') {
        if (const auto i = fr::integer(c[1])) v = *i;
    } else {
        v = fr::real(c[1], std::stoi(c[0].substr(c[0].find('.') + 1)));
    }
    ASSERT_EQ(v.has_value(), c[2] != "fault");
    if (!v) return;
    EXPECT_EQ(*v, std::stod(c[2]));
    EXPECT_EQ(std::signbit(*v), std::signbit(std::stod(c[2])));
}

INSTANTIATE_TEST_SUITE_P(CompilerReference, FormattedFields,
                         ::testing::ValuesIn(gasfiles::cases("fluiddata/formatted_fields.csv")));

TEST(FieldRead, NonFiniteAndMalformedFieldsAreFaults) {
    for (const char* f : {"Inf", "-Infinity", "NaN", "1E999", "1.0D+400", "9999999E400", "1E99999999999999999999",
                          "E5", "--1", "1e5e5", "\t1.5", "1.5\r", "0x10"})
        EXPECT_FALSE(fr::real(f, 3)) << f;
    EXPECT_FALSE(fr::real(std::string_view("1\0" "5", 3), 3));
    for (const char* f : {"+", "1E2", "99999999999"}) EXPECT_FALSE(fr::integer(f)) << f;
}

TEST(FieldRead, TinyValuesUnderflowToSignedZero) {
    EXPECT_EQ(*fr::real("1E-99999999999999999999", 0), 0.0);
    EXPECT_TRUE(std::signbit(*fr::real("-1E-999", 3)));
}

}  // namespace
