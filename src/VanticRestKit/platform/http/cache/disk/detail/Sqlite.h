#pragma once

/// \file
/// `SqliteConnection` and `SqliteStatement`: RAII wrappers of SQLite's handles. Results are SQLite result codes.

#include <cstdint>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace VanticRestKit::detail {

/// A prepared statement. Must be finalised before its connection closes.
class SqliteStatement {
public:
    SqliteStatement() noexcept = default;
    SqliteStatement(const SqliteStatement&) = delete;
    SqliteStatement& operator=(const SqliteStatement&) = delete;
    ~SqliteStatement() { finalise(); }

    void finalise() noexcept;

    // Positions begin at 1. The bytes must stay valid until `reset`.
    SqliteStatement& bind(int position, std::string_view bytes) noexcept;
    SqliteStatement& bind(int position, std::int64_t number) noexcept;

    /// SQLITE_ROW, SQLITE_DONE or an error.
    int step() noexcept;
    /// Runs to the end and resets; SQLITE_OK or an error.
    int run() noexcept;
    /// Makes it ready for the next use and clears its bindings.
    void reset() noexcept;

    // Columns begin at 0. The view is valid until the next call.
    std::string_view bytes(int column) noexcept;
    std::int64_t number(int column) noexcept;

private:
    friend class SqliteConnection;
    sqlite3_stmt* statement_ = nullptr;
};

/// An open database file, for one thread at a time.
class SqliteConnection {
public:
    SqliteConnection() noexcept = default;
    SqliteConnection(const SqliteConnection&) = delete;
    SqliteConnection& operator=(const SqliteConnection&) = delete;
    ~SqliteConnection() { close(); }

    /// Opens an existing file.
    int open(const std::string& path) noexcept;
    /// Does nothing if it is not open. All statements must be finalised.
    void close() noexcept;
    bool isOpen() const noexcept { return database_ != nullptr; }

    int execute(const char* statements) noexcept;
    int prepare(SqliteStatement& statement, std::string_view text) noexcept;
    /// Runs a query, such as a pragma, whose result is `number`.
    int ask(std::string_view query, std::int64_t& number) noexcept;

    void setBusyTimeout(int milliseconds) noexcept;
    void setMaxLength(int bytes) noexcept;
    /// Keeps the log file when the connection closes: by then its name may belong to another file.
    void keepLogAtClose() noexcept;
    bool isInTransaction() const noexcept;
    /// SQLite's message for the last error.
    std::string message() const;

private:
    sqlite3* database_ = nullptr;
};

}  // namespace VanticRestKit::detail
