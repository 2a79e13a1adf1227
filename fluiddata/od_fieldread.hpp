// Fixed-column numeric fields read with the rules of formatted scientific
// input (Fw.d, Ew.d and Iw edit descriptors): blanks anywhere in a field are
// ignored and an all-blank field reads as zero; a real without a decimal
// point has d implied decimals; the exponent may be written E+nn, D+nn,
// Q+nn (either case) or as a bare signed number after the mantissa
// ("1.0+05", "1.0-05"). A field that is not a number is a read fault.
// Values that are not finite (INF, NAN, overflow) are faults as well, so a
// table filled through this reader holds finite numbers only.
#pragma once
#include <cstddef>
#include <optional>
#include <string_view>

namespace od::fieldread {

// The real number in a field read with d implied decimals; nullopt on a fault.
std::optional<double> real(std::string_view field, int decimals);
// The integer in a field (Iw); nullopt on a fault.
std::optional<int> integer(std::string_view field);

// Reads the fields of one line in order from column 1. A line shorter than
// the fields reads as if padded with blanks. After the first fault nothing
// more is read or assigned: the fields read before it keep their values.
struct Cursor {
    std::string_view line;
    std::size_t column = 0;  // 0-based column of the next field
    bool ok = true;          // no fault so far

    // Columns of the next field (shorter than width past the end of the line).
    std::string_view take(std::size_t width);
    void skip(std::size_t width) { column += width; }
    // Each reader assigns out and returns true only when no fault has occurred.
    bool text(std::size_t width, std::string_view& out);
    bool real(std::size_t width, int decimals, double& out);
    bool integer(std::size_t width, int& out);
};

}  // namespace od::fieldread
