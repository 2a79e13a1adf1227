// Error and warning reporting of the water-and-steam package.
#include "pwsftn/pws_error.hpp"

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>

#include "pwsftn/pws_context.hpp"

namespace pws {
namespace {

// Message texts of the error line (12 characters) and the value labels (4).
constexpr std::array<std::string_view, 2> mess{"Out of range", "Non converg."};
constexpr std::array<std::string_view, 5> ma{", P=", ", T=", ", H=", ", V=", ", S="};
// Shown for a label number that has no entry (a code no routine passes).
constexpr std::string_view unknown_label = ", ?=";
constexpr std::string_view error_prefix = " *** PWSFTN-ERROR: ";
constexpr std::string_view error_suffix = " ***";
constexpr std::string_view warning_head = "*** PWSFTN-WARNING: Maximum number of ";
constexpr std::string_view warning_tail_open = "iterations exceeded (code: ";
constexpr std::string_view warning_tail_close = ") ***";
constexpr std::string_view stop_line_1 = " Execution inhibited due to PWSFTN-ERROR count!";
constexpr std::string_view stop_line_2 = " Number of diagnosed errors: ";
constexpr int value_width = 16;   // field of each printed value
constexpr int value_digits = 8;   // digits after the point
constexpr int count_width = 5;    // field of the error count in the stop summary

void* record(ErrorState& s) { return s.bound != nullptr ? s.bound : &s.own; }
const void* record(const ErrorState& s) { return s.bound != nullptr ? s.bound : &s.own; }

void close_file(ErrorState& s) {
    if (s.file != nullptr) std::fclose(s.file);
    s.file = nullptr;
}

void put_line(std::FILE* stream, std::string_view line) {
    std::fwrite(line.data(), 1, line.size(), stream);
    std::fputc('\n', stream);
}

std::string_view label(std::int64_t index) {
    if (index < 1 || index > static_cast<std::int64_t>(ma.size())) return unknown_label;
    return ma[static_cast<std::size_t>(index - 1)];
}

std::string asterisks(int w) { return std::string(static_cast<std::size_t>(w > 0 ? w : 0), '*'); }

std::string right_aligned(std::string text, int w) {
    if (static_cast<int>(text.size()) > w) return asterisks(w);
    return std::string(static_cast<std::size_t>(w) - text.size(), ' ') + text;
}

}  // namespace

ErrorRecord pwserr(const Context& ctx) {
    ErrorRecord r;
    std::memcpy(&r, record(ctx.error), sizeof r);
    return r;
}

void set_pwserr(Context& ctx, const ErrorRecord& r) { std::memcpy(record(ctx.error), &r, sizeof r); }

void bind_error_record(Context& ctx, void* storage) {
    if (storage != nullptr) ctx.error.bound = storage;
}

std::string fortran_e(double value, int w, int d, int k) {
    if (w <= 0) return {};
    if (std::isnan(value)) return right_aligned("NaN", w);
    if (std::isinf(value)) {
        if (value < 0) return right_aligned(w >= 9 ? "-Infinity" : "-Inf", w);
        return right_aligned(w >= 8 ? "Infinity" : "Inf", w);
    }
    if (d < 1) d = 1;
    if (d > 40) d = 40;
    // Decimal digits rounded to d (k = 0) or d + 1 (k = 1) significant places.
    const int significant = k == 0 ? d : d + 1;
    char buf[96];
    std::snprintf(buf, sizeof buf, "%.*E", significant - 1, std::fabs(value));
    const std::string text(buf);
    const std::size_t epos = text.find('E');
    std::string digits = text.substr(0, 1) + text.substr(2, epos - 2);
    int exponent = std::atoi(text.c_str() + epos + 1);
    std::string mantissa;
    if (k == 0) {
        if (value != 0.0) exponent += 1;
        mantissa = "0." + digits;
    } else {
        mantissa = digits.substr(0, 1) + "." + digits.substr(1);
    }
    const int magnitude = exponent < 0 ? -exponent : exponent;
    char ebuf[16];
    if (magnitude <= 99)
        std::snprintf(ebuf, sizeof ebuf, "E%c%02d", exponent < 0 ? '-' : '+', magnitude);
    else if (magnitude <= 999)
        std::snprintf(ebuf, sizeof ebuf, "%c%03d", exponent < 0 ? '-' : '+', magnitude);
    else
        return asterisks(w);
    std::string out = (std::signbit(value) ? "-" : "") + mantissa + ebuf;
    // The optional zero before the point goes first when the field is tight.
    if (static_cast<int>(out.size()) > w && k == 0) {
        const std::size_t zero = out.find("0.");
        if (zero != std::string::npos) out.erase(zero, 1);
    }
    return right_aligned(out, w);
}

std::string fortran_i(std::int64_t value, int w) { return right_aligned(std::to_string(value), w); }

std::string list_integer(std::int32_t value) { return fortran_i(value, 12); }

std::string list_directed(std::initializer_list<std::string_view> items) {
    std::string line = " ";
    for (std::string_view item : items) line += item;
    return line;
}

void write_record(Context& ctx, int channel, std::string_view line) {
    ErrorState& s = ctx.error;
    if (s.output == Output::collect) {
        s.messages.push_back({0, std::string(line)});
        return;
    }
    if (s.sink) {
        s.sink(channel, line);
        return;
    }
    if (channel == stdout_channel) {
        put_line(stdout, line);
        return;
    }
    if (channel == 0) {
        put_line(stderr, line);
        return;
    }
    switch (s.channel13) {
    case Channel13::file:
        put_line(s.file, line);
        std::fflush(s.file);
        return;
    case Channel13::callback:
        s.callback(line.data(), line.size());
        return;
    case Channel13::standard_error:
        put_line(stderr, line);
        return;
    }
}

std::vector<Message> take_messages(Context& ctx) { return std::exchange(ctx.error.messages, {}); }

void set_channel13_stderr(Context& ctx) {
    ErrorState& s = ctx.error;
    close_file(s);
    s.callback = nullptr;
    s.channel13 = Channel13::standard_error;
}

bool set_channel13_file(Context& ctx, std::string_view path) {
    const std::string name(path);
    if (name.empty()) return false;
    std::FILE* f = std::fopen(name.c_str(), "a");
    if (f == nullptr) return false;
    set_channel13_stderr(ctx);
    ErrorState& s = ctx.error;
    s.file = f;
    s.channel13 = Channel13::file;
    return true;
}

void set_channel13_callback(Context& ctx, Channel13Callback callback) {
    set_channel13_stderr(ctx);
    if (callback == nullptr) return;
    ErrorState& s = ctx.error;
    s.callback = callback;
    s.channel13 = Channel13::callback;
}

std::string error_line(std::int32_t icode, double x1, double x2) {
    // Intended: a code of 0 selects "Out of range" (no caller passes it).
    const std::int64_t code = icode;
    const std::int64_t n = code < 0 ? -code : code;
    const std::int64_t a = n / 10;
    const std::int64_t b = n % 10;
    std::string line(error_prefix);
    line += mess[code < 0 ? 1 : 0];
    if (a == 0) {
        line += label(b);
        line += fortran_e(x1, value_width, value_digits, 1);
    } else {
        line += label(a);
        line += fortran_e(x1, value_width, value_digits, 1);
        line += label(b);
        line += fortran_e(x2, value_width, value_digits, 1);
    }
    line += error_suffix;
    return line;
}

void pwser(Context& ctx, std::string_view /*name*/, std::int32_t icode, double x1, double x2) {
    ErrorRecord r = pwserr(ctx);
    // Intended: the count is never reset; a host that wants a fresh count writes nerr.
    if (r.nerr < INT32_MAX) r.nerr += 1;
    set_pwserr(ctx, r);
    if (ctx.error.output == Output::collect) {
        ctx.error.messages.push_back({icode, error_line(icode, x1, x2)});
        return;
    }
    if (r.nerr <= r.maxmsg) write_record(ctx, r.iunit, error_line(icode, x1, x2));
    if (r.nerr > r.maxerr) {
        write_record(ctx, r.iunit, "");
        write_record(ctx, r.iunit, stop_line_1);
        // Intended: the count is written in 5 columns (asterisks once it has more digits).
        write_record(ctx, r.iunit, std::string(stop_line_2) + fortran_i(r.nerr, count_width));
        write_record(ctx, r.iunit, "");
        // Intended: past maxerr the package ends the host process, with status 0
        // as an empty stop text gives.
        std::fflush(nullptr);
        std::exit(0);
    }
}

void warn_iterations(Context& ctx, std::string_view code) {
    std::string tail(warning_tail_open);
    tail += code;
    tail += warning_tail_close;
    write_record(ctx, pwserr(ctx).iunit, list_directed({warning_head, tail}));
}

void set_record_sink_for_tests(RecordSink sink) { default_context().error.sink = std::move(sink); }

void reset_error_for_tests() {
    Context& ctx = default_context();
    set_pwserr(ctx, initial_error_record);
    set_channel13_stderr(ctx);
    ctx.error.sink = nullptr;
}

}  // namespace pws
