// One row of the adapter's case table tests/data/if97_adapter/prop_cases.csv,
// read for the core and the exported if97_prop alike.
#pragma once
#include <algorithm>
#include <string>
#include <string_view>

#include "if97_adapter/if97_qv.hpp"
#include "tests/solver/csv_rows.hpp"

namespace if97_adapter_test {

// A cell of the table: ';' stands for ',', which separates the columns.
inline std::string with_commas(std::string s) {
    std::replace(s.begin(), s.end(), ';', ',');
    return s;
}

// A letter cell; an empty cell is a blank.
inline char letter(const std::string& cell) { return cell.empty() ? ' ' : cell[0]; }

struct PropCase {
    std::string spec, property, sent;
    double value1, value2, value, tolerance;
    char code1, code2;
    bool ok;
    explicit PropCase(const od::test::CsvRow& r)
        : spec(r.text("spec")), property(with_commas(r.text("property"))),
          sent(with_commas(r.text("sent"))), value1(r.num("value1")), value2(r.num("value2")),
          value(r.num("value")), tolerance(r.num("tolerance")), code1(letter(r.text("code1"))),
          code2(letter(r.text("code2"))), ok(r.num("ok") == 1.0) {}
};

// The property text the adapter sent to the library, trailing blanks removed.
inline std::string sent_text() {
    std::string_view t = od::if97_qv::state().property();
    while (!t.empty() && t.back() == ' ') t.remove_suffix(1);
    return std::string(t);
}

}  // namespace if97_adapter_test
