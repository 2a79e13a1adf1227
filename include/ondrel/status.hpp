// Status codes of the modern API and the one table of their messages.
//
// Every call of the modern API answers with a value and a status, or with a
// status alone; no value field ever carries a marker such as -8888.8. The
// numbers are those of the C interface (ondrel_c.h) and never change.
#pragma once
#include <string_view>

#include "ondrel/export.h"

namespace ondrel {

enum class Status : int {
    ok = 0,
    gas_data_not_found = 1,     // no gas data file or database record where the library looked
    unknown_component = 2,      // a component name that is not in the gas table
    too_many_components = 3,    // more than 250 components
    invalid_composition = 4,    // empty, negative fraction, or fractions not summing to one
    unknown_pair = 5,           // an input pair the model does not solve
    unknown_property = 6,       // a property name that is not in the list
    invalid_input = 7,          // NaN or infinite input value
    non_positive_input = 8,     // pressure, volume or density at or below zero
    outside_data_range = 9,     // temperature or state outside the data's range of validity
    no_solution = 10,           // no state in the data range reproduces the inputs
    not_converged = 11,         // the iteration did not reach its tolerance
    pressure_undetermined = 12, // the inputs do not fix the pressure (an ideal gas's h or u)
    not_available = 13,         // the property has no value at this state
    invalid_argument = 14,      // a null handle or arrays of mismatched sizes
    not_unique = 15,            // the inputs do not fix one state (e.g. p and T on the saturation line)
    out_of_memory = 16,         // memory ran out (a C call's answer where C++ throws std::bad_alloc)
};

// The message of a status, e.g. "unknown component"; "unknown status" for a
// number that is no status.
ONDREL_API std::string_view message(Status status);

// A value with the status of the call that produced it. The value is
// meaningful only when the status is ok.
template <class T>
struct Result {
    T value{};
    Status status = Status::ok;
    explicit operator bool() const { return status == Status::ok; }
};

}  // namespace ondrel
