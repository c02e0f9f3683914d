#include <VanticRestKit/platform/http/cache/disk/detail/Sqlite.h>

#include <sqlite3.h>

namespace VanticRestKit::detail {

void SqliteStatement::finalise() noexcept {
    sqlite3_finalize(statement_);
    statement_ = nullptr;
}

SqliteStatement& SqliteStatement::bind(int position, std::string_view bytes) noexcept {
    // A null pointer would bind NULL instead of an empty blob.
    const char* data = bytes.data() == nullptr ? "" : bytes.data();
    sqlite3_bind_blob64(statement_, position, data, bytes.size(), nullptr);
    return *this;
}

SqliteStatement& SqliteStatement::bind(int position, std::int64_t number) noexcept {
    sqlite3_bind_int64(statement_, position, number);
    return *this;
}

int SqliteStatement::step() noexcept { return sqlite3_step(statement_); }

int SqliteStatement::run() noexcept {
    int result = SQLITE_ROW;
    while (result == SQLITE_ROW) result = step();
    reset();
    return result == SQLITE_DONE ? SQLITE_OK : result;
}

void SqliteStatement::reset() noexcept {
    sqlite3_reset(statement_);
    sqlite3_clear_bindings(statement_);
}

std::string_view SqliteStatement::bytes(int column) noexcept {
    // Call in this order: a conversion by the first call may change the size.
    const void* data = sqlite3_column_blob(statement_, column);
    const int size = sqlite3_column_bytes(statement_, column);
    if (data == nullptr || size <= 0) return {};
    return {static_cast<const char*>(data), static_cast<std::size_t>(size)};
}

std::int64_t SqliteStatement::number(int column) noexcept { return sqlite3_column_int64(statement_, column); }

int SqliteConnection::open(const std::string& path) noexcept {
    const int result =
        sqlite3_open_v2(path.c_str(), &database_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    if (database_ != nullptr) sqlite3_extended_result_codes(database_, 1);
    return result;
}

void SqliteConnection::close() noexcept {
    sqlite3_close_v2(database_);
    database_ = nullptr;
}

int SqliteConnection::execute(const char* statements) noexcept {
    return sqlite3_exec(database_, statements, nullptr, nullptr, nullptr);
}

int SqliteConnection::prepare(SqliteStatement& statement, std::string_view text) noexcept {
    statement.finalise();
    return sqlite3_prepare_v3(database_, text.data(), static_cast<int>(text.size()),
                              SQLITE_PREPARE_PERSISTENT, &statement.statement_, nullptr);
}

int SqliteConnection::ask(std::string_view query, std::int64_t& number) noexcept {
    SqliteStatement statement;
    if (const int result = prepare(statement, query); result != SQLITE_OK) return result;
    const int result = statement.step();
    if (result != SQLITE_ROW) return result == SQLITE_DONE ? SQLITE_ERROR : result;
    number = statement.number(0);
    return SQLITE_OK;
}

void SqliteConnection::setBusyTimeout(int milliseconds) noexcept {
    sqlite3_busy_timeout(database_, milliseconds);
}

void SqliteConnection::setMaxLength(int bytes) noexcept {
    sqlite3_limit(database_, SQLITE_LIMIT_LENGTH, bytes);
}

void SqliteConnection::keepLogAtClose() noexcept {
    int keep = 1;
    sqlite3_file_control(database_, "main", SQLITE_FCNTL_PERSIST_WAL, &keep);
}

bool SqliteConnection::isInTransaction() const noexcept {
    return database_ != nullptr && sqlite3_get_autocommit(database_) == 0;
}

std::string SqliteConnection::message() const {
    return database_ == nullptr ? "not open" : sqlite3_errmsg(database_);
}

}  // namespace VanticRestKit::detail
