#include <VanticRestKit/platform/http/cache/disk/detail/CacheDatabase.h>

#include <sqlite3.h>
#include <zlib.h>

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace VanticRestKit::detail {

namespace {

constexpr std::int64_t applicationId = 0x56524b43;
constexpr std::int64_t schemaVersion = 1;
constexpr std::int64_t pageSize = 4096;
/// The first page, the page of auto_vacuum, and the root pages of two tables and two indices.
constexpr std::int64_t pagesOfEmptyFile = 6;
/// The estimated overhead of a record in rows, indices and partly filled pages.
constexpr std::uint64_t overheadOfRecord = 256;

constexpr const char* settings =
    // Opening a file must not run code from an untrusted schema.
    "PRAGMA trusted_schema=OFF; PRAGMA cell_size_check=ON;"
    // With mmap, a file that is truncated would crash the process with SIGBUS.
    "PRAGMA mmap_size=0;"
    "PRAGMA temp_store=MEMORY; PRAGMA synchronous=NORMAL; PRAGMA secure_delete=FAST;"
    "PRAGMA wal_autocheckpoint=512; PRAGMA journal_size_limit=2097152;";

// Bodies have their own table, so that updating the order of use or a head does not rewrite them. IF NOT EXISTS:
// another process may create the tables at the same time if the folder could not be locked.
constexpr const char* schema =
    "BEGIN IMMEDIATE;"
    "CREATE TABLE IF NOT EXISTS record(id INTEGER PRIMARY KEY, key BLOB NOT NULL, variant BLOB NOT NULL,"
    " head BLOB NOT NULL,"
    " headSum INTEGER NOT NULL, bodySum INTEGER NOT NULL, size INTEGER NOT NULL, used INTEGER NOT NULL,"
    " UNIQUE(key, variant));"
    "CREATE INDEX IF NOT EXISTS byUse ON record(used);"
    "CREATE TABLE IF NOT EXISTS body(id INTEGER PRIMARY KEY, bytes BLOB NOT NULL);"
    "CREATE TRIGGER IF NOT EXISTS removeBody AFTER DELETE ON record BEGIN DELETE FROM body"
    " WHERE id = old.id; END;"
    "PRAGMA application_id=1448233795; PRAGMA user_version=1;"
    "COMMIT;";
static_assert(applicationId == 1448233795 && schemaVersion == 1);

std::int64_t checksum(std::string_view key, std::string_view variant, std::string_view bytes) noexcept {
    uLong sum = crc32_z(0, nullptr, 0);
    for (const std::string_view part : {key, variant, bytes}) {
        if (!part.empty()) sum = crc32_z(sum, reinterpret_cast<const Bytef*>(part.data()), part.size());
    }
    return static_cast<std::int64_t>(sum);
}

/// A copy of `bytes` with the padding of a `Data`.
Data copied(std::string_view bytes) { return Data(bytes); }

/// The smallest string greater than all that begin with `prefix`; empty if there is none.
std::string endOfPrefix(std::string_view prefix) {
    std::string end(prefix);
    while (!end.empty() && static_cast<unsigned char>(end.back()) == 0xff) end.pop_back();
    if (!end.empty()) end.back() = static_cast<char>(static_cast<unsigned char>(end.back()) + 1);
    return end;
}

std::uint64_t sizeOf(const CacheRecord& record) noexcept {
    return record.key.size() + record.variant.size() + record.head.size() + record.body.size();
}

}  // namespace

int CacheDatabase::configure(const DiskCacheLimits& limits) {
    connection_.setBusyTimeout(static_cast<int>(limits.busyTimeout.count()));
    connection_.keepLogAtClose();
    // A corrupt length must not make the process allocate a gigabyte. Rows are never larger than the pending bytes.
    constexpr std::size_t sqliteLimit = 1'000'000'000;
    connection_.setMaxLength(static_cast<int>(std::min(sqliteLimit, limits.maxPendingBytes + (1U << 20U))));
    return connection_.execute(settings);
}

CacheDatabase::Content CacheDatabase::open(const std::string& path, const DiskCacheLimits& limits,
                                           int& result) {
    const auto check = [&result](int code) { return (result = code) == SQLITE_OK; };
    std::int64_t application = 0;
    std::int64_t version = 0;
    std::int64_t entries = 0;
    if (!check(connection_.open(path)) || !check(configure(limits)) ||
        !check(connection_.ask("PRAGMA application_id", application)) ||
        !check(connection_.ask("PRAGMA user_version", version)) ||
        !check(connection_.ask("SELECT count(*) FROM sqlite_schema", entries))) {
        return Content::unreadable;
    }
    const bool isEmpty = application == 0 && version == 0 && entries == 0;
    if (!isEmpty && application != applicationId) return Content::foreign;
    if (!isEmpty && version > schemaVersion) return Content::newer;
    if (!isEmpty && version < schemaVersion) result = SQLITE_CORRUPT;
    if (isEmpty) check(makeTables());
    // Also needed if the log of the file was removed manually.
    if (result == SQLITE_OK) check(connection_.execute("PRAGMA journal_mode=WAL"));
    if (result == SQLITE_OK) check(prepareAll());
    if (result == SQLITE_OK && limits.maxPages > 0) {
        check(connection_.execute(("PRAGMA max_page_count=" + std::to_string(limits.maxPages)).c_str()));
    }
    return result == SQLITE_OK ? Content::ours : Content::unreadable;
}

int CacheDatabase::makeTables() {
    // The first two cannot change after the first page is written, which setting the journal mode does.
    const int result =
        connection_.execute("PRAGMA page_size=4096; PRAGMA auto_vacuum=INCREMENTAL; PRAGMA journal_mode=WAL");
    return result == SQLITE_OK ? connection_.execute(schema) : result;
}

int CacheDatabase::prepareAll() {
    struct Text {
        SqliteStatement& statement;
        std::string_view text;
    };
    const std::array texts{
        Text{begin_, "BEGIN IMMEDIATE"},
        Text{commit_, "COMMIT"},
        Text{rollback_, "ROLLBACK"},
        Text{find_,
             "SELECT id, variant, head, headSum, bytes, bodySum FROM record JOIN body USING(id) WHERE key = "
             "?1"},
        Text{contains_, "SELECT 1 FROM record WHERE key = ?1 AND variant = ?2"},
        Text{insert_,
             "INSERT INTO record(key, variant, head, headSum, bodySum, size, used)"
             " VALUES(?1, ?2, ?3, ?4, ?5, ?6, (SELECT ifnull(max(used), 0) + 1 FROM record))"
             " ON CONFLICT(key, variant) DO UPDATE SET head = excluded.head, headSum = excluded.headSum,"
             " bodySum = excluded.bodySum, size = excluded.size, used = excluded.used RETURNING id"},
        Text{insertBody_, "INSERT OR REPLACE INTO body(id, bytes) VALUES(?1, ?2)"},
        Text{updateHead_,
             "UPDATE record SET size = size - length(head) + length(?3), head = ?3, headSum = ?4,"
             " used = (SELECT max(used) + 1 FROM record) WHERE key = ?1 AND variant = ?2 AND bodySum = ?5"},
        Text{touch_, "UPDATE record SET used = (SELECT max(used) + 1 FROM record) WHERE id = ?1"},
        Text{removeKey_, "DELETE FROM record WHERE key = ?1"},
        Text{removeRecord_, "DELETE FROM record WHERE key = ?1 AND variant = ?2"},
        Text{removeId_, "DELETE FROM record WHERE id = ?1"},
        Text{oldest_, "SELECT id, size FROM record ORDER BY used LIMIT 256"},
        Text{pageCount_, "PRAGMA page_count"},
        Text{freePages_, "PRAGMA freelist_count"},
    };
    for (const Text& each : texts) {
        const int result = connection_.prepare(each.statement, each.text);
        if (result != SQLITE_OK) return result;
    }
    return SQLITE_OK;
}

void CacheDatabase::close() noexcept {
    for (SqliteStatement* statement :
         {&begin_, &commit_, &rollback_, &find_, &contains_, &insert_, &insertBody_, &updateHead_, &touch_,
          &removeKey_, &removeRecord_, &removeId_, &oldest_, &pageCount_, &freePages_}) {
        statement->finalise();
    }
    connection_.close();
}

int CacheDatabase::begin() noexcept { return begin_.run(); }

int CacheDatabase::commit() noexcept { return commit_.run(); }

void CacheDatabase::rollback() noexcept {
    if (connection_.isInTransaction()) rollback_.run();
}

int CacheDatabase::find(std::string_view key, Found& found) {
    find_.bind(1, key);
    int result = SQLITE_ROW;
    while ((result = find_.step()) == SQLITE_ROW) {
        const std::int64_t id = find_.number(0);
        const std::string_view variant = find_.bytes(1);
        const std::string_view head = find_.bytes(2);
        const std::string_view body = find_.bytes(4);
        if (checksum(key, variant, head) != find_.number(3) ||
            checksum(key, variant, body) != find_.number(5)) {
            found.damaged.push_back(id);
            continue;
        }
        found.records.push_back({std::string(key), std::string(variant), copied(head), copied(body)});
        found.ids.push_back(id);
    }
    find_.reset();
    return result == SQLITE_DONE ? SQLITE_OK : result;
}

int CacheDatabase::contains(std::string_view key, std::string_view variant, bool& is) {
    const int result = contains_.bind(1, key).bind(2, variant).step();
    contains_.reset();
    is = result == SQLITE_ROW;
    return result == SQLITE_ROW || result == SQLITE_DONE ? SQLITE_OK : result;
}

int CacheDatabase::containsPrefix(std::string_view prefix, bool& is) {
    SqliteStatement first;
    const int prepared =
        connection_.prepare(first, "SELECT key FROM record WHERE key >= ?1 ORDER BY key LIMIT 1");
    if (prepared != SQLITE_OK) return prepared;
    const int result = first.bind(1, prefix).step();
    is = result == SQLITE_ROW && first.bytes(0).substr(0, prefix.size()) == prefix;
    return result == SQLITE_ROW || result == SQLITE_DONE ? SQLITE_OK : result;
}

int CacheDatabase::write(const CacheRecord& record, std::uint64_t capacity) {
    // A long body begins on a new page.
    const std::uint64_t estimate =
        sizeOf(record) + overheadOfRecord + (record.body.size() > 2000 ? pageSize : 0);
    if (estimate > capacity) return remove(record.key, record.variant);
    std::uint64_t used = 0;
    int result = usage(used);
    if (result == SQLITE_OK && used + estimate > capacity) {
        // Free more than is needed now, or each following write would have to evict again.
        const std::uint64_t target = capacity - capacity / 10;
        result = evictTo(target > estimate ? target - estimate : 0);
    }
    if (result != SQLITE_OK) return result;

    const std::string_view head = record.head.view();
    const std::string_view body = record.body.view();
    insert_.bind(1, record.key).bind(2, record.variant).bind(3, head);
    insert_.bind(4, checksum(record.key, record.variant, head));
    insert_.bind(5, checksum(record.key, record.variant, body));
    insert_.bind(6, static_cast<std::int64_t>(sizeOf(record)));
    result = insert_.step();
    const std::int64_t id = result == SQLITE_ROW ? insert_.number(0) : 0;
    if (result == SQLITE_ROW) result = insert_.step();
    insert_.reset();
    if (result != SQLITE_DONE) return result;
    return insertBody_.bind(1, id).bind(2, body).run();
}

int CacheDatabase::writeHead(const CacheRecord& record) {
    const std::string_view head = record.head.view();
    updateHead_.bind(1, record.key).bind(2, record.variant).bind(3, head);
    updateHead_.bind(4, checksum(record.key, record.variant, head));
    return updateHead_.bind(5, checksum(record.key, record.variant, record.body.view())).run();
}

int CacheDatabase::remove(std::string_view key) { return removeKey_.bind(1, key).run(); }

int CacheDatabase::remove(std::string_view key, std::string_view variant) {
    return removeRecord_.bind(1, key).bind(2, variant).run();
}

int CacheDatabase::remove(std::int64_t id) { return removeId_.bind(1, id).run(); }

int CacheDatabase::removeAll(std::string_view prefix) {
    const std::string end = endOfPrefix(prefix);
    SqliteStatement statement;
    const int result =
        connection_.prepare(statement, end.empty() ? "DELETE FROM record WHERE key >= ?1"
                                                   : "DELETE FROM record WHERE key >= ?1 AND key < ?2");
    if (result != SQLITE_OK) return result;
    statement.bind(1, prefix);
    if (!end.empty()) statement.bind(2, std::string_view(end));
    return statement.run();
}

int CacheDatabase::touch(std::int64_t id) { return touch_.bind(1, id).run(); }

int CacheDatabase::evictTo(std::uint64_t capacity) {
    // A page becomes free only when all its records are gone, so check the usage again.
    for (;;) {
        std::uint64_t used = 0;
        if (const int result = usage(used); result != SQLITE_OK) return result;
        if (used <= capacity) return SQLITE_OK;
        bool isEmpty = false;
        if (const int result = evictBatch(used - capacity, isEmpty); result != SQLITE_OK) return result;
        if (isEmpty) return SQLITE_OK;
    }
}

int CacheDatabase::evictBatch(std::uint64_t excess, bool& isEmpty) {
    std::vector<std::int64_t> ids;
    std::uint64_t freed = 0;
    int result = SQLITE_DONE;
    while (freed < excess && (result = oldest_.step()) == SQLITE_ROW) {
        ids.push_back(oldest_.number(0));
        freed += static_cast<std::uint64_t>(std::max<std::int64_t>(0, oldest_.number(1))) + overheadOfRecord;
    }
    oldest_.reset();
    if (result != SQLITE_ROW && result != SQLITE_DONE) return result;
    isEmpty = ids.empty();
    for (const std::int64_t id : ids) {
        if (const int removed = remove(id); removed != SQLITE_OK) return removed;
    }
    return SQLITE_OK;
}

int CacheDatabase::shrink() {
    constexpr std::int64_t always = 256;
    constexpr std::int64_t atOnce = 1024;
    // Calls wait meanwhile, so the number of steps is limited. The rest is returned after the next changes.
    constexpr int steps = 8;
    for (int step = 0; step < steps; ++step) {
        std::int64_t used = 0;
        std::int64_t free = 0;
        if (const int result = pages(used, free); result != SQLITE_OK) return result;
        const std::int64_t kept = std::max(always, used / 4);
        if (free <= kept) return SQLITE_OK;
        const std::int64_t count = std::min(atOnce, free - kept);
        const std::string text = "PRAGMA incremental_vacuum(" + std::to_string(count) + ")";
        if (const int result = connection_.execute(text.c_str()); result != SQLITE_OK) return result;
        std::int64_t freeAfter = 0;
        if (const int result = pages(used, freeAfter); result != SQLITE_OK) return result;
        // Another process may use the pages that this one frees.
        if (freeAfter >= free) return SQLITE_OK;
    }
    return SQLITE_OK;
}

void CacheDatabase::checkpoint() noexcept { connection_.execute("PRAGMA wal_checkpoint(RESTART)"); }

int CacheDatabase::pages(std::int64_t& used, std::int64_t& free) noexcept {
    int result = pageCount_.step();
    const std::int64_t all = result == SQLITE_ROW ? pageCount_.number(0) : 0;
    pageCount_.reset();
    if (result != SQLITE_ROW) return result;
    result = freePages_.step();
    free = result == SQLITE_ROW ? freePages_.number(0) : 0;
    freePages_.reset();
    used = std::max<std::int64_t>(0, all - free - pagesOfEmptyFile);
    return result == SQLITE_ROW ? SQLITE_OK : result;
}

int CacheDatabase::usage(std::uint64_t& bytes) noexcept {
    std::int64_t used = 0;
    std::int64_t free = 0;
    const int result = pages(used, free);
    bytes = static_cast<std::uint64_t>(used) * pageSize;
    return result;
}

}  // namespace VanticRestKit::detail
