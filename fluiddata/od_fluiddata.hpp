// Gas table and current composition: every component of the gas data with
// its NASA 7-coefficient polynomials, molar mass, temperature range and
// Lennard-Jones data; the components of the last stored mixture with their
// table rows; and the loaders that fill the table once.
#pragma once
#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "fluiddata/od_types.hpp"
#include "host/od_host.hpp"

namespace od::fluiddata {

inline constexpr std::string_view library_name = "Ondrel";        // asked of fluidpath
inline constexpr std::string_view data_file_name = host::gas_data_file;  // gas data file and record name

// --- lookups by name ------------------------------------------------------
// True when the name is a row of the gas table (loads the table first if needed).
bool iscomp(const CompName& name);
// First table row (1-based) whose name matches; missing_row if none.
int getidx(const CompName& name);
// Stores a mixture's names (cut to 8 characters) and their table rows.
// Names past the capacity of 250 are ignored.
void storeidx(std::span<const CompName> names);
// Table row of a stored component or of "H2O" / "H2O(L)"; missing_row if none.
int getstoredidx(const CompName& name);

// --- values of a stored component (or "H2O" / "H2O(L)") -----------------
// A name that is neither stored nor a water name (or whose row is not a table
// row) gives missing_value (-8888.8); getcoef then fills a with it.
// The seven coefficients a1..a7 valid at T (K): range 1 above 1000 K, else range 2,
// the other range when the chosen one has a1 == 0.0.
void getcoef(const CompName& name, double t, std::span<double, 7> a);
double gettmin(const CompName& name);   // lower temperature limit, K
double gettmax(const CompName& name);   // upper temperature limit, K
double getmmol(const CompName& name);   // molar mass, kg/mol
double geteps(const CompName& name);    // Lennard-Jones energy parameter eps/k, K
double getsigma(const CompName& name);  // Lennard-Jones collision diameter, Angstrom
char getphase(const CompName& name);    // 'S' solid, 'L' liquid, 'G' gas

// --- the table as a whole -------------------------------------------------
// Number of table rows; names receives all 250 name slots in table order.
int getcompset(std::span<CompName, max_components> names);
void setdbread();   // marks the table as loaded
bool dbread();      // the table has been loaded (or loading was attempted)

// One row of the gas table as loaded (row 1..250; rows not loaded are all zero).
struct TableRow {
    CompName name;
    std::array<std::array<char, 2>, 4> namato{};  // element symbols
    std::array<int, 4> numato{};                  // atom counts
    double tmin = 0.0, tmax = 0.0, mmol = 0.0;    // K, K, kg/mol
    std::array<std::array<double, 7>, 2> coef{};  // range 1 (above 1000 K), range 2
    double sigma = 0.0, eps = 0.0;                // Angstrom, K
};
// A whole gas table as a value: what a loader fills. The exported routines
// use one process-wide table; the modern API loads its own, once, and never
// changes it afterwards.
struct Table {
    int ngas = 0;
    std::array<TableRow, max_components> rows{};
    std::array<std::uint64_t, max_components> name_key{};  // rows[j].name.key(), scanned by lookups
};
// Fills t from the gas data file at path (as readgasfile) or from the fluid
// database record `name` in `directory` (as readgasdb). on_rows, when
// given, is called once the source turns out to hold rows, before they
// replace t's.
void read_table_file(std::string_view path, Table& t, void (*on_rows)() = nullptr);
void read_table_db(std::string_view directory, std::string_view name, Table& t, void (*on_rows)() = nullptr);
// 0-based slot of the first row of t named `name`, or -1.
int find_row(const Table& t, const CompName& name);
// The configured source of the gas data: the fluid path's directory and
// whether the database or the gas data file is read.
struct Source {
    std::string directory;
    bool database = false;
    std::string file_path() const;  // directory + data_file_name, cut as readgas cuts it
};
Source configured_source();
// Loads t from the configured source.
void read_table(const Source& source, Table& t, void (*on_rows)() = nullptr);

int table_size();                // ngas
// Number of loads that have changed the table so far (0 before the first);
// a cache of names checked against the table is valid while this stays the same.
unsigned table_generation();
const TableRow& table_row(int row);  // row 1..250; an all-zero row outside

// The table row the getters read for a stored component (or "H2O" / "H2O(L)"),
// or nullptr where they answer with missing_value.
const TableRow* stored_table_row(const CompName& name);

inline constexpr double range_split_temperature = 1000.0;  // K: range 1 above, range 2 at and below

// The coefficient set of row valid at t, as getcoef chooses it.
inline const std::array<double, 7>& coef_at(const TableRow& row, double t) {
    // Intended: exactly 1000 K takes range 2.
    int range = t > range_split_temperature ? 0 : 1;
    // Intended: a range whose a1 is exactly 0.0 is absent; the other one serves.
    if (row.coef[range][0] == 0.0) range = 1 - range;
    return row.coef[range];
}

// --- stored composition (read by the property requests' cache test) -------
int stored_count();                    // ncmp
// True when names equal the stored names (count and order), trailing blanks ignored.
bool same_as_stored(std::span<const CompName> names);
const CompName& stored_name(int i);    // cmp(i), i = 1..ncmp
double stored_conc(int i);             // cnc(i): never written, always 0.0

// --- loading --------------------------------------------------------------
// Loads the table once from the configured source, then marks it loaded.
void readgas();
// Fills the table from the gas data file at path; a path that is not a
// regular file (missing, a directory, a device) reads nothing.
// A load that reads rows (a file with its header line, a record with at
// least one line) first forgets the stored composition (count 0, no names,
// no rows) and starts a new table_generation(): a request after it checks
// its names against the new table and stores their new rows.
void readgasfile(std::string_view path);
// Fills the table from the fluid database record `name` in `directory`;
// forgets the stored composition as readgasfile does.
void readgasdb(std::string_view directory, std::string_view name);

// Test hook: returns the table and the stored composition to their load-time
// (all zero, not loaded) state.
void reset_for_tests();

}  // namespace od::fluiddata
