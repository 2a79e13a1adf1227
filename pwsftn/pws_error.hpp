// Error and warning reporting of the water-and-steam package, and the output
// channels its messages go to.
//
// Channels: 6 is the standard output stream; 13 is the host's channel
// (standard error unless the host points it at a file or a callback); 0 is
// standard error; any other number is treated as the host's channel.
// Every line is one record: the writer appends the line end itself.
#pragma once
#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "pwsftn/pws_context_fwd.hpp"

namespace pws {

inline constexpr int stdout_channel = 6;  // standard output
inline constexpr int host_channel = 13;   // the host's channel (standard error by default)

// The error record: channel, print limit, stop limit and count, in this order
// (the layout of the host's common block of the same name).
struct ErrorRecord {
    std::int32_t iunit;   // channel of error and warning lines
    std::int32_t maxmsg;  // errors for which a line is still written
    std::int32_t maxerr;  // errors after which the process is stopped
    std::int32_t nerr;    // errors counted so far
};
inline constexpr ErrorRecord initial_error_record{6, 1000000, 1000000, 0};

// Where a context's lines go: to the channels, with the print and stop limits
// of its record (the legacy behaviour), or kept in the context as messages,
// every one, never written and never stopping the process.
enum class Output { channels, collect };

// A line kept by a collecting context: the pwser code of a counted error
// (its sign tells "Out of range" from "Non converg."), or 0 for a line that
// is not counted (an iteration warning, a report of an inverse routine, a
// message of the entry routine); the text is the line the channels would get.
struct Message {
    std::int32_t code;
    std::string text;
};

// The context's error record (the host may change its fields between calls).
ErrorRecord pwserr(const Context& ctx);
void set_pwserr(Context& ctx, const ErrorRecord& record);
// Makes `storage` (four 32-bit integers in the order of ErrorRecord) the
// storage of the context's error record; used once by the exports so that
// the host's common block and the default context share one record.
void bind_error_record(Context& ctx, void* storage);

// Counts one error in the context's record. On the channels: writes its line
// on channel iunit while the count is within maxmsg, and stops the process
// once the count passes maxerr. Collecting: keeps the line with its code.
// `name` (the reporting routine) is accepted and not printed. icode > 0
// "Out of range", < 0 "Non converg."; |icode| = 10 a + b shows label a with
// x1 and label b with x2 (a = 0: label b with x1 only). Labels: 1 P, 2 T,
// 3 H, 4 V, 5 S.
void pwser(Context& ctx, std::string_view name, std::int32_t icode, double x1, double x2);

// The composed error line of pwser, without counting or writing.
std::string error_line(std::int32_t icode, double x1, double x2);

// The warning of an iteration that ran out of steps, on channel iunit (not
// counted); `code` is the routine's name, "PWS_I1" or "PWS_ID".
void warn_iterations(Context& ctx, std::string_view code);

// Writes one record that is not counted on a channel, or keeps it (code 0)
// in a collecting context.
void write_record(Context& ctx, int channel, std::string_view line);
// The lines a collecting context has kept since they were last taken, in
// order; the context's list is empty afterwards.
std::vector<Message> take_messages(Context& ctx);

// A list-directed record: a leading blank, then the items one after another.
std::string list_directed(std::initializer_list<std::string_view> items);

// Fortran edit formatting. Ew.d with scale factor k (1: one digit before the
// point and d after, 3.80000000E+02; 0: 0.380000000E+03), right-aligned in w
// characters; a three-digit exponent drops the letter E (1.0+100), a value
// that does not fit prints w asterisks.
std::string fortran_e(double value, int w, int d, int k);
// Iw: the integer right-aligned in w characters, w asterisks if it does not fit.
std::string fortran_i(std::int64_t value, int w);
// The integer as a list-directed item (right-aligned in 12 characters after the
// item separator, as the common Fortran compilers write a default integer).
std::string list_integer(std::int32_t value);

// Channel 13 of the context: standard error (default), a file opened for
// appending, or a callback receiving each line without its line end.
using Channel13Callback = void (*)(const char* text, std::size_t length);
void set_channel13_stderr(Context& ctx);
bool set_channel13_file(Context& ctx, std::string_view path);  // false: not opened, channel unchanged
void set_channel13_callback(Context& ctx, Channel13Callback callback);  // nullptr: standard error

// Every record of every channel of the context goes to `sink` instead of the
// streams (an empty function restores the streams).
using RecordSink = std::function<void(int channel, std::string_view line)>;

// ---------------------------------------------------------------------------
// The legacy routines: the same over the default context.

inline ErrorRecord pwserr() { return pwserr(default_context()); }
inline void set_pwserr(const ErrorRecord& record) { set_pwserr(default_context(), record); }
inline void pwser(std::string_view name, std::int32_t icode, double x1, double x2) {
    pwser(default_context(), name, icode, x1, x2);
}
inline void warn_iterations(std::string_view code) { warn_iterations(default_context(), code); }
inline void write_record(int channel, std::string_view line) {
    write_record(default_context(), channel, line);
}
inline void set_channel13_stderr() { set_channel13_stderr(default_context()); }
inline bool set_channel13_file(std::string_view path) { return set_channel13_file(default_context(), path); }
inline void set_channel13_callback(Channel13Callback callback) {
    set_channel13_callback(default_context(), callback);
}

// Test hook: the records of the default context go to `sink`.
void set_record_sink_for_tests(RecordSink sink);
// Test hook: restores the default context's initial error record, its
// channel routing and its sink.
void reset_error_for_tests();

}  // namespace pws
