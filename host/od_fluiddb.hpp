// The fluid database: a SQLite file holding named text records of up to 255
// lines of 255 characters (one record per row, lines joined by '\n').
// Readers open the file read-only and never create it.
#pragma once
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace od::fluiddb {

inline constexpr std::string_view file_name = "fluids.db";  // in the fluid path
inline constexpr std::size_t max_lines = 255;               // lines of one record
inline constexpr std::size_t max_width = 255;               // characters of one line
inline constexpr std::size_t max_name = 256;                // characters of a record name

// The lines of record `name` in the database file at db_path, each cut to 255
// characters, at most 255 of them; nullopt when the file, the record or the
// read fails.
std::optional<std::vector<std::string>> read_record(std::string_view db_path, std::string_view name);

// Stores text (lines ending in LF or CR LF) as record `name`, creating the
// database file when needed and replacing a record of the same name.
// Returns an empty text on success, else the reason for refusing.
std::string import_record(std::string_view db_path, std::string_view name, std::string_view text);

struct RecordInfo {
    std::string name;
    std::size_t lines = 0;
};
// The records of the database file in name order; nullopt when it cannot be read.
std::optional<std::vector<RecordInfo>> list_records(std::string_view db_path);

// Splits text into lines at LF, dropping a CR before it; a final LF ends the
// last line rather than starting an empty one.
std::vector<std::string> split_lines(std::string_view text);

}  // namespace od::fluiddb
