#include "host/od_fluiddb.hpp"

#include <sqlite3.h>

namespace od::fluiddb {
namespace {

constexpr const char* create_sql =
    "CREATE TABLE IF NOT EXISTS fluid_records (name TEXT PRIMARY KEY, content TEXT NOT NULL)";
constexpr const char* select_sql = "SELECT content FROM fluid_records WHERE name = ?1";
constexpr const char* replace_sql = "INSERT OR REPLACE INTO fluid_records (name, content) VALUES (?1, ?2)";
constexpr const char* list_sql = "SELECT name, content FROM fluid_records ORDER BY name";

constexpr std::string_view msg_empty_name = "record name is empty";
constexpr std::string_view msg_long_name = "record name is longer than 256 characters";
constexpr std::string_view msg_too_many_lines = "record has more than 255 lines";
constexpr std::string_view msg_long_line = "record has a line longer than 255 characters, line ";
constexpr std::string_view msg_database = "database error: ";

// An open connection, closed when it goes out of scope.
struct Connection {
    sqlite3* db = nullptr;
    Connection(std::string_view path, int flags) {
        const std::string p(path);
        if (sqlite3_open_v2(p.c_str(), &db, flags, nullptr) != SQLITE_OK) close();
    }
    ~Connection() { close(); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    void close() {
        sqlite3_close(db);
        db = nullptr;
    }
    std::string error() const { return std::string(msg_database) + (db ? sqlite3_errmsg(db) : "cannot open"); }
};

// A prepared statement, finalised when it goes out of scope.
struct Statement {
    sqlite3_stmt* st = nullptr;
    Statement(sqlite3* db, const char* sql) {
        if (db == nullptr || sqlite3_prepare_v2(db, sql, -1, &st, nullptr) != SQLITE_OK) st = nullptr;
    }
    ~Statement() { sqlite3_finalize(st); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    bool bind(int i, std::string_view s) {
        return sqlite3_bind_text(st, i, s.data(), static_cast<int>(s.size()), SQLITE_TRANSIENT) == SQLITE_OK;
    }
    std::string_view column(int i) {
        const auto* p = reinterpret_cast<const char*>(sqlite3_column_text(st, i));
        if (p == nullptr) return {};
        return {p, static_cast<std::size_t>(sqlite3_column_bytes(st, i))};
    }
};

}  // namespace

std::vector<std::string> split_lines(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        lines.emplace_back(line);
        if (end == std::string_view::npos) break;
        text.remove_prefix(end + 1);
    }
    return lines;
}

std::optional<std::vector<std::string>> read_record(std::string_view db_path, std::string_view name) {
    Connection c(db_path, SQLITE_OPEN_READONLY);
    Statement s(c.db, select_sql);
    if (s.st == nullptr || !s.bind(1, name)) return std::nullopt;
    if (sqlite3_step(s.st) != SQLITE_ROW) return std::nullopt;
    std::vector<std::string> lines = split_lines(s.column(0));
    if (lines.size() > max_lines) lines.resize(max_lines);
    for (std::string& line : lines)
        if (line.size() > max_width) line.resize(max_width);
    return lines;
}

std::string import_record(std::string_view db_path, std::string_view name, std::string_view text) {
    if (name.empty()) return std::string(msg_empty_name);
    if (name.size() > max_name) return std::string(msg_long_name);
    const std::vector<std::string> lines = split_lines(text);
    if (lines.size() > max_lines) return std::string(msg_too_many_lines);
    std::string content;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].size() > max_width) return std::string(msg_long_line) + std::to_string(i + 1);
        if (i > 0) content.push_back('\n');
        content += lines[i];
    }
    Connection c(db_path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    if (c.db == nullptr) return c.error();
    if (sqlite3_exec(c.db, create_sql, nullptr, nullptr, nullptr) != SQLITE_OK) return c.error();
    Statement s(c.db, replace_sql);
    if (s.st == nullptr || !s.bind(1, name) || !s.bind(2, content)) return c.error();
    if (sqlite3_step(s.st) != SQLITE_DONE) return c.error();
    return {};
}

std::optional<std::vector<RecordInfo>> list_records(std::string_view db_path) {
    Connection c(db_path, SQLITE_OPEN_READONLY);
    Statement s(c.db, list_sql);
    if (s.st == nullptr) return std::nullopt;
    std::vector<RecordInfo> records;
    int rc;
    while ((rc = sqlite3_step(s.st)) == SQLITE_ROW)
        records.push_back({std::string(s.column(0)), split_lines(s.column(1)).size()});
    if (rc != SQLITE_DONE) return std::nullopt;
    return records;
}

}  // namespace od::fluiddb
