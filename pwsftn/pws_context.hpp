// The context of the water-and-steam package: the state of every module that
// a call changes, in one record the caller owns. A context serves one thread
// at a time; contexts share nothing but the constant coefficient tables, so
// threads with a context each run without locks. The legacy routines run on
// default_context().
#pragma once
#include <array>
#include <cstdio>
#include <vector>

#include "pwsftn/pws_context_fwd.hpp"
#include "pwsftn/pws_error.hpp"
#include "pwsftn/pws_saturation.hpp"
#include "pwsftn/pws_terms.hpp"

namespace pws {

enum class Channel13 { standard_error, file, callback };

// Error reporting: the record, where the lines go, the kept messages.
struct ErrorState {
    ErrorRecord own = initial_error_record;
    void* bound = nullptr;  // the host's storage of the record (read and written bytewise), or own
    Output output = Output::channels;
    std::vector<Message> messages;  // Output::collect
    Channel13 channel13 = Channel13::standard_error;
    std::FILE* file = nullptr;
    Channel13Callback callback = nullptr;
    RecordSink sink;
};

// The saturation-slope record (written by psl1) and the current-state record
// (written by comt1, comt2, comt3).
struct SaturationState {
    double slope = 0.0;
    CurrentState current{};
};

// The kept state of a common-term routine and its terms.
template <class Terms>
struct KeptTerms {
    double a_prev = detail::no_state;  // pressure (comt1, comt2) or volume (comt3)
    double b_prev = detail::no_state;  // temperature
    Terms terms;
};

// The entry routine's key buffer: the current key, blank-filled.
struct EntryState {
    std::array<char, 4> depend{' ', ' ', ' ', ' '};
};

struct Context {
    explicit Context(Output output = Output::channels) { error.output = output; }
    ~Context();  // closes a channel-13 file
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;

    ErrorState error;
    SaturationState saturation;
    KeptTerms<detail::GibbsTerms> region1;
    KeptTerms<detail::GibbsTerms> region2;
    KeptTerms<detail::Terms3> region3;
    EntryState entry;
};

}  // namespace pws
