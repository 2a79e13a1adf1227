#include "fluiddata/od_fluiddata.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

#include "fluiddata/od_fieldread.hpp"
#include "host/od_host.hpp"

namespace od::fluiddata {
namespace {

inline constexpr int record_lines = 255;                    // lines of a database record
inline constexpr std::size_t record_width = 255;            // characters of a record line
inline constexpr std::size_t path_width = 256;              // characters of the data file path
// Columns of a file line that are kept; the layout uses 80 of them.
inline constexpr std::size_t kept_line_width = 4096;

const CompName water_gas = CompName::from("H2O");
const CompName water_liquid = CompName::from("H2O(L)");

// The gas table of the exported routines, and their stored composition.
struct FluidDataState : Table {
    bool dbhasbeenread = false;
    // Current composition; idx holds the rows of cmp(1..ncmp), then of "H2O" and "H2O(L)".
    int ncmp = 0;
    std::array<CompName, max_components> cmp{};
    std::array<double, max_components> cnc{};
    std::array<int, max_components + 2> idx{};
    // Loads so far: callers that keep names checked against the table compare it.
    unsigned generation = 0;
};

FluidDataState& state() {
    static FluidDataState s;
    return s;
}

// 0-based slot of the first of rows 1..ngas named `name`, or -1.
int find_table_slot(const CompName& name) { return find_row(state(), name); }

// Row of a stored component or of a water name; missing_row when not found.
int stored_row(const CompName& name) {
    const FluidDataState& s = state();
    // Intended: with no stored mixture even the two water names have no row.
    if (s.ncmp < 1 || name.overlong) return missing_row;
    if (name == water_gas) return s.idx[s.ncmp];
    if (name == water_liquid) return s.idx[s.ncmp + 1];
    const std::uint64_t key = name.key();
    for (int i = 0; i < s.ncmp; ++i)
        if (s.cmp[i].key() == key) return s.idx[i];
    return missing_row;
}

// One column of the row the getters read; missing_value when the name has no row.
double stored_value(const CompName& name, double TableRow::*column) {
    const TableRow* row = stored_table_row(name);
    return row ? row->*column : missing_value;
}

std::string_view trim_right(std::string_view s) {
    while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
    return s;
}

// --- reading the four-line blocks ---------------------------------------

// Name line: name (8 columns), 16 skipped, four elements of symbol (2), count
// (2) and one skipped column, one skipped column, then tmin F10.3, tmax
// F10.3, mmol F12.8. A fault leaves the fields from the faulty one on unread.
void read_name_line(std::string_view line, TableRow& row, std::uint64_t& key) {
    fieldread::Cursor c{line};
    std::string_view text;
    c.text(name_width, text);
    row.name = CompName::from(text);
    key = row.name.key();
    c.skip(16);
    for (int k = 0; k < 4; ++k) {
        c.text(2, text);
        row.namato[k] = {' ', ' '};
        std::copy_n(text.begin(), std::min<std::size_t>(text.size(), 2), row.namato[k].begin());
        // Intended: the count is read from two columns; a third column is skipped unseen.
        if (!c.integer(2, row.numato[k])) return;
        c.skip(1);
    }
    c.skip(1);
    if (c.real(10, 3, row.tmin) && c.real(10, 3, row.tmax)) c.real(12, 8, row.mmol);
}

// Coefficient lines: a1..a7 of range 1 then of range 2 in E15.8 fields, five
// on the first line, five on the second, four on the third followed by sigma
// and eps in F10.5. Missing lines and faults leave the rest as it was.
void read_coef_lines(std::span<const std::string_view> lines, TableRow& row) {
    constexpr std::array<int, 3> per_line = {5, 5, 4};
    int k = 0;
    for (std::size_t l = 0; l < per_line.size(); ++l) {
        if (l >= lines.size()) return;
        fieldread::Cursor c{lines[l]};
        for (int j = 0; j < per_line[l]; ++j, ++k)
            if (!c.real(15, 8, row.coef[k / 7][k % 7])) return;
        if (l + 1 == per_line.size() && c.real(10, 5, row.sigma)) c.real(10, 5, row.eps);
    }
}

// Next line of the file without its LF (and a CR before it), keeping at most
// kept_line_width characters; false at the end of the file or on a read error.
bool read_line(std::FILE* in, std::string& line) {
    line.clear();
    int c = std::getc(in);
    if (c == EOF) return false;
    bool cut = false;
    for (; c != EOF && c != '\n'; c = std::getc(in)) {
        if (line.size() < kept_line_width) line.push_back(static_cast<char>(c));
        else cut = true;
    }
    if (!cut && !line.empty() && line.back() == '\r') line.pop_back();
    return true;
}

// A load is about to replace rows of the table: the stored composition and
// its rows belong to the table as it was, so they are forgotten, and callers
// that cache names see a new generation.
void forget_composition() {
    FluidDataState& s = state();
    s.ncmp = 0;
    s.cmp = {};
    s.idx = {};
    ++s.generation;
}

struct FileCloser {
    void operator()(std::FILE* f) const { std::fclose(f); }
};

}  // namespace

// --- lookups --------------------------------------------------------------

bool iscomp(const CompName& name) {
    if (!state().dbhasbeenread) readgas();
    return find_table_slot(name) >= 0;
}

int getidx(const CompName& name) {
    const int slot = find_table_slot(name);
    return slot < 0 ? missing_row : slot + 1;
}

void storeidx(std::span<const CompName> names) {
    FluidDataState& s = state();
    const int n = static_cast<int>(std::min<std::size_t>(names.size(), max_components));
    s.ncmp = n;
    for (int i = 0; i < n; ++i) s.cmp[i] = names[i].stored();
    for (int i = 0; i < n; ++i) {
        // Intended: a name not in the table keeps its former row.
        const int slot = find_table_slot(names[i]);
        if (slot >= 0) s.idx[i] = slot + 1;
    }
    if (s.ngas < 1) return;
    // Intended: the last "H2O" row before the first "H2O(L)" row wins; the
    // scan ends at the first "H2O(L)", and without one idx(n+2) keeps its value.
    for (int j = 0; j < s.ngas; ++j) {
        if (s.rows[j].name == water_gas) s.idx[n] = j + 1;
        if (s.rows[j].name == water_liquid) {
            s.idx[n + 1] = j + 1;
            break;
        }
    }
}

int getstoredidx(const CompName& name) { return stored_row(name); }

const TableRow* stored_table_row(const CompName& name) {
    const int row = stored_row(name);
    if (row < 1 || row > max_components) return nullptr;
    return &state().rows[row - 1];
}

// --- values -----------------------------------------------------------------

void getcoef(const CompName& name, double t, std::span<double, 7> a) {
    const TableRow* row = stored_table_row(name);
    if (row == nullptr) {
        std::fill(a.begin(), a.end(), missing_value);
        return;
    }
    const std::array<double, 7>& c = coef_at(*row, t);
    std::copy(c.begin(), c.end(), a.begin());
}

double gettmin(const CompName& name) { return stored_value(name, &TableRow::tmin); }
double gettmax(const CompName& name) { return stored_value(name, &TableRow::tmax); }
double getmmol(const CompName& name) { return stored_value(name, &TableRow::mmol); }
double geteps(const CompName& name) { return stored_value(name, &TableRow::eps); }
double getsigma(const CompName& name) { return stored_value(name, &TableRow::sigma); }

char getphase(const CompName& name) {
    const std::string_view t = name.trimmed();
    if (t.size() <= 2) return 'G';
    const std::string_view suffix = t.substr(t.size() - 3);
    if (suffix == "(S)") return 'S';
    if (suffix == "(L)") return 'L';
    return 'G';
}

// --- the table as a whole ---------------------------------------------------

int getcompset(std::span<CompName, max_components> names) {
    const FluidDataState& s = state();
    // Intended: all 250 slots are copied; those past ngas hold NUL characters.
    for (int j = 0; j < max_components; ++j) names[j] = s.rows[j].name;
    return s.ngas;
}

void setdbread() { state().dbhasbeenread = true; }

bool dbread() { return state().dbhasbeenread; }

int table_size() { return state().ngas; }

unsigned table_generation() { return state().generation; }

const TableRow& table_row(int row) {
    static const TableRow empty{};
    if (row < 1 || row > max_components) return empty;
    return state().rows[row - 1];
}

// --- stored composition -------------------------------------------------------

int stored_count() { return state().ncmp; }

bool same_as_stored(std::span<const CompName> names) {
    const FluidDataState& s = state();
    return std::equal(names.begin(), names.end(), s.cmp.begin(), s.cmp.begin() + s.ncmp);
}

const CompName& stored_name(int i) {
    static const CompName none{};
    if (i < 1 || i > state().ncmp) return none;
    return state().cmp[i - 1];
}

// Intended: the stored concentrations are compared by callers but never written.
double stored_conc(int i) { return (i >= 1 && i <= max_components) ? state().cnc[i - 1] : 0.0; }

// --- loading --------------------------------------------------------------------

int find_row(const Table& t, const CompName& name) {
    if (name.overlong) return -1;
    const std::uint64_t key = name.key();
    for (int j = 0; j < t.ngas; ++j)
        if (t.name_key[j] == key) return j;
    return -1;
}

std::string Source::file_path() const {
    std::string path = directory + std::string(data_file_name);
    // Intended: the joined path is cut to its 256-character buffer.
    if (path.size() > path_width) path.resize(path_width);
    return path;
}

Source configured_source() {
    return {std::string(trim_right(host::fluidpath(library_name))), host::gas_source() == host::GasSource::database};
}

void read_table(const Source& source, Table& t, void (*on_rows)()) {
    if (source.database)
        read_table_db(source.directory, data_file_name, t, on_rows);
    else
        read_table_file(source.file_path(), t, on_rows);
}

void readgas() {
    if (state().dbhasbeenread) return;
    read_table(configured_source(), state(), forget_composition);
    // Intended: marked loaded whatever the loader achieved; a failed load is not retried.
    setdbread();
}

void readgasfile(std::string_view path) { read_table_file(path, state(), forget_composition); }

void readgasdb(std::string_view directory, std::string_view name) {
    read_table_db(directory, name, state(), forget_composition);
}

void read_table_file(std::string_view path, Table& s, void (*on_rows)()) {
    // Only a regular file is read: a device or pipe could deliver one endless line.
    std::error_code ec;
    if (!std::filesystem::is_regular_file(std::filesystem::path(path), ec)) return;
    const std::unique_ptr<std::FILE, FileCloser> file(std::fopen(std::string(path).c_str(), "rb"));
    if (!file) return;
    std::FILE* in = file.get();
    std::string line;
    if (!read_line(in, line)) return;  // the header line carries nothing kept
    if (on_rows) on_rows();
    std::array<std::string, 3> coef_text;
    for (int i = 0; i < max_components; ++i) {
        if (!read_line(in, line)) return;  // end of file: the table holds i rows
        read_name_line(line, s.rows[i], s.name_key[i]);
        std::array<std::string_view, 3> coef_lines;
        std::size_t got = 0;
        while (got < coef_text.size() && read_line(in, coef_text[got])) {
            coef_lines[got] = coef_text[got];
            ++got;
        }
        // Intended: a block cut off after its name line still counts as a row.
        read_coef_lines(std::span(coef_lines.data(), got), s.rows[i]);
        s.ngas = i + 1;
    }
}

void read_table_db(std::string_view directory, std::string_view name, Table& s, void (*on_rows)()) {
    const host::FluidRecord record = host::getfluid(directory, name);
    const int n = static_cast<int>(std::min<std::size_t>(record.lines.size(), record_lines));
    if (n == 0 || record.status == 0) return;
    if (on_rows) on_rows();
    const auto line = [&](int i) {  // record line i (1-based), cut to the record width
        return std::string_view(record.lines[i - 1]).substr(0, record_width);
    };
    // Line 1 is the header: nothing of it is kept.
    // Intended: (n - 1) / 4 whole blocks, so at most 63; lines of an unfinished block are ignored.
    s.ngas = (n - 1) / 4;
    for (int i = 1; i <= s.ngas; ++i) {
        TableRow& row = s.rows[i - 1];
        read_name_line(line(4 * i - 2), row, s.name_key[i - 1]);
        const std::array<std::string_view, 3> coef_lines = {line(4 * i - 1), line(4 * i), line(4 * i + 1)};
        read_coef_lines(coef_lines, row);
    }
}

void reset_for_tests() { state() = FluidDataState{}; }

}  // namespace od::fluiddata
