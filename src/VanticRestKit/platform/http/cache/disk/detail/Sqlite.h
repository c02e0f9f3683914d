#pragma once

/// \file
/// `SqliteConnection` and `SqliteStatement`: SQLite's handles as objects. Results are SQLite's own result codes.

#include <cstdint>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace VanticRestKit::detail {

/// A prepared statement. It is finalised before its connection closes.
class SqliteStatement {
public:
    SqliteStatement() noexcept = default;
    SqliteStatement(const SqliteStatement&) = delete;
    SqliteStatement& operator=(const SqliteStatement&) = delete;
    ~SqliteStatement() { finalise(); }

    void finalise() noexcept;

    // Positions begin at 1. The bytes have to stay where they are until `reset`.
    SqliteStatement& bind(int position, std::string_view bytes) noexcept;
    SqliteStatement& bind(int position, std::int64_t number) noexcept;

    /// SQLITE_ROW, SQLITE_DONE or an error.
    int step() noexcept;
    /// Runs to the end and resets; SQLITE_OK or an error.
    int run() noexcept;
    /// Makes it ready for the next use and drops what is bound.
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

    /// Opens a file that exists.
    int open(const std::string& path) noexcept;
    /// Does nothing if it is not open. All statements have to be finalised.
    void close() noexcept;
    bool isOpen() const noexcept { return database_ != nullptr; }

    int execute(const char* statements) noexcept;
    int prepare(SqliteStatement& statement, std::string_view text) noexcept;
    /// The number that `query` gives, such as that of a pragma, in `number`.
    int ask(std::string_view query, std::int64_t& number) noexcept;

    void setBusyTimeout(int milliseconds) noexcept;
    void setMaxLength(int bytes) noexcept;
    /// Leaves the log where it is when the connection closes: its name may belong to another file by then.
    void keepLogAtClose() noexcept;
    bool isInTransaction() const noexcept;
    /// What SQLite says about the last error.
    std::string message() const;

private:
    sqlite3* database_ = nullptr;
};

}  // namespace VanticRestKit::detail
