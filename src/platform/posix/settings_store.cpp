// The settings store on SQLite: write-ahead log, each commit flushed to the disk.
#include "platform/settings_store.h"

#include <sqlite3.h>
#include <sys/stat.h>

#include <memory>
#include <utility>

#include "data/failure.h"
#include "data/text.h"
#include "data/utf.h"
#include "data/width.h"
#include "platform/posix/data_folder.h"
#include "platform/posix/late_library.h"
#include "platform/posix/settings_glance.h"

namespace velm {

namespace {

constexpr int kBusyMilliseconds = 10'000;
constexpr int kRetryMilliseconds = 10;
constexpr const char* kFileName = "settings.db";
constexpr const char* kSchema =
    "PRAGMA journal_mode=WAL;"
    "CREATE TABLE IF NOT EXISTS keys(id INTEGER PRIMARY KEY, parent INTEGER NOT NULL,"
    " folded TEXT NOT NULL, name TEXT NOT NULL, UNIQUE(parent, folded));"
    "CREATE TABLE IF NOT EXISTS entries(id INTEGER PRIMARY KEY, owner INTEGER NOT NULL,"
    " folded TEXT NOT NULL, name TEXT NOT NULL, type INTEGER NOT NULL, data BLOB NOT NULL,"
    " UNIQUE(owner, folded));";
constexpr const char* kFindKey = "SELECT id FROM keys WHERE parent=?1 AND folded=?2";
constexpr const char* kAddKey =
    "INSERT INTO keys(parent, folded, name) VALUES(?1, ?2, ?3) RETURNING id";
constexpr const char* kReadValue = "SELECT type, data FROM entries WHERE owner=?1 AND folded=?2";
constexpr const char* kWriteValue =
    "INSERT INTO entries(owner, folded, name, type, data) VALUES(?1, ?2, ?3, ?4, ?5)"
    " ON CONFLICT(owner, folded) DO UPDATE SET type=excluded.type, data=excluded.data";
constexpr const char* kDeleteValue = "DELETE FROM entries WHERE owner=?1 AND folded=?2";
constexpr const char* kSubkeys = "SELECT name FROM keys WHERE parent=?1 ORDER BY folded";
constexpr const char* kValueNames = "SELECT name FROM entries WHERE owner=?1 ORDER BY id";
// A key and all below it.
constexpr const char* kDeleteEntriesBelow =
    "WITH RECURSIVE below(id) AS (VALUES(?1) UNION SELECT keys.id FROM keys, below"
    " WHERE keys.parent=below.id) DELETE FROM entries WHERE owner IN below";
constexpr const char* kDeleteKeysBelow =
    "WITH RECURSIVE below(id) AS (VALUES(?1) UNION SELECT keys.id FROM keys, below"
    " WHERE keys.parent=below.id) DELETE FROM keys WHERE id IN below";

// The functions of the library that are used.
struct Sqlite {
    LateLibrary file{"libsqlite3.so.0", u"SQLite"};
    decltype(&sqlite3_bind_blob64) bindBlob = file["sqlite3_bind_blob64"];
    decltype(&sqlite3_bind_int64) bindInt = file["sqlite3_bind_int64"];
    decltype(&sqlite3_bind_text64) bindText = file["sqlite3_bind_text64"];
    decltype(&sqlite3_busy_timeout) busyTimeout = file["sqlite3_busy_timeout"];
    decltype(&sqlite3_changes) changes = file["sqlite3_changes"];
    decltype(&sqlite3_close_v2) close = file["sqlite3_close_v2"];
    decltype(&sqlite3_column_blob) columnBlob = file["sqlite3_column_blob"];
    decltype(&sqlite3_column_bytes) columnBytes = file["sqlite3_column_bytes"];
    decltype(&sqlite3_column_int64) columnInt = file["sqlite3_column_int64"];
    decltype(&sqlite3_exec) exec = file["sqlite3_exec"];
    decltype(&sqlite3_extended_result_codes) extendedResultCodes =
        file["sqlite3_extended_result_codes"];
    decltype(&sqlite3_finalize) finalize = file["sqlite3_finalize"];
    decltype(&sqlite3_open_v2) open = file["sqlite3_open_v2"];
    decltype(&sqlite3_prepare_v2) prepare = file["sqlite3_prepare_v2"];
    decltype(&sqlite3_sleep) sleep = file["sqlite3_sleep"];
    decltype(&sqlite3_step) step = file["sqlite3_step"];
};

const Sqlite& Sql() {
    static const Sqlite library;
    return library;
}

[[noreturn]] void FailBy(int result) {
    switch (result & 0xFF) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED: throw Failure(failure::kFileOpen);
        case SQLITE_FULL: throw Failure(failure::kDiskFull);
        case SQLITE_NOMEM: throw Failure(failure::kOutOfMemory);
        case SQLITE_READONLY:
        case SQLITE_PERM:
        case SQLITE_AUTH:
        case SQLITE_CANTOPEN: throw Failure(failure::kPermissionDenied);
        default:
            throw Failure(failure::kIoError, u"設定の保存先が壊れているか、読み書きできません。");
    }
}

void Check(int result) {
    if (result != SQLITE_OK && result != SQLITE_ROW && result != SQLITE_DONE) FailBy(result);
}

struct CloseConnection {
    void operator()(sqlite3* connection) const { Sql().close(connection); }
};
using Connection = std::unique_ptr<sqlite3, CloseConnection>;

// One SQL statement with its parameters.
class Query {
  public:
    Query(sqlite3* connection, const char* sql) {
        Check(Sql().prepare(connection, sql, -1, &statement_, nullptr));
    }
    Query(const Query&) = delete;
    Query& operator=(const Query&) = delete;
    ~Query() { Sql().finalize(statement_); }

    Query& Bind(int place, std::int64_t number) {
        Check(Sql().bindInt(statement_, place, number));
        return *this;
    }
    Query& Bind(int place, std::u16string_view text) {
        const std::string bytes = Utf16ToUtf8(text);
        Check(Sql().bindText(statement_, place, bytes.data(), bytes.size(), SQLITE_TRANSIENT,
                             SQLITE_UTF8));
        return *this;
    }
    Query& BindBytes(int place, std::string_view bytes) {
        // A null pointer would bind no value instead of an empty one.
        const char* data = bytes.empty() ? "" : bytes.data();
        Check(Sql().bindBlob(statement_, place, data, bytes.size(), SQLITE_TRANSIENT));
        return *this;
    }
    // Goes to the next row; false behind the last one.
    bool Next() {
        const int result = Sql().step(statement_);
        Check(result);
        return result == SQLITE_ROW;
    }
    std::int64_t Number(int column) { return Sql().columnInt(statement_, column); }
    std::string Bytes(int column) {
        const void* data = Sql().columnBlob(statement_, column);
        const auto size = static_cast<std::size_t>(Sql().columnBytes(statement_, column));
        return data == nullptr ? std::string() : std::string(static_cast<const char*>(data), size);
    }
    std::u16string Text(int column) { return Utf8ToUtf16(Bytes(column)); }

  private:
    sqlite3_stmt* statement_ = nullptr;
};

// The open file. Whether it is still the one under its name is asked at each use, so that a folder
// that was cleared under a running script takes no write into nowhere.
struct Store {
    Connection connection;
    dev_t device = 0;
    ino_t inode = 0;
    bool prepared = false;  // the tables are there
};

Store& TheStore() {
    static Store store;
    return store;
}

std::string FilePath() { return native::DataFolder() + "/" + kFileName; }

bool IsStillTheFile(const std::string& path) {
    struct stat info;
    const Store& store = TheStore();
    return stat(path.c_str(), &info) == 0 && info.st_dev == store.device &&
           info.st_ino == store.inode;
}

Connection Open(const std::string& path, int flags) {
    sqlite3* opened = nullptr;
    const int result = Sql().open(path.c_str(), &opened, flags, nullptr);
    Connection connection(opened);
    Check(result);
    Sql().extendedResultCodes(opened, 1);
    Sql().busyTimeout(opened, kBusyMilliseconds);
    Check(Sql().exec(opened, "PRAGMA synchronous=FULL", nullptr, nullptr, nullptr));
    return connection;
}

void Remember(const std::string& path, Connection connection) {
    Store& store = TheStore();
    struct stat info = {};
    stat(path.c_str(), &info);
    store.device = info.st_dev;
    store.inode = info.st_ino;
    store.prepared = false;
    store.connection = std::move(connection);
}

// The connection for reading; nullptr when nothing was ever stored.
sqlite3* ForReading() {
    Store& store = TheStore();
    const std::string path = FilePath();
    if (store.connection && IsStillTheFile(path)) return store.connection.get();
    store.connection.reset();
    struct stat info;
    if (stat(path.c_str(), &info) != 0) return nullptr;
    Remember(path, Open(path, SQLITE_OPEN_READWRITE));
    return store.connection.get();
}

// Switching a new file to the write-ahead log takes it whole, and of two processes that both try the
// library sends one away at once instead of letting it wait.
void Prepare(sqlite3* connection) {
    int result = SQLITE_OK;
    for (int waited = 0; waited <= kBusyMilliseconds; waited += kRetryMilliseconds) {
        result = Sql().exec(connection, kSchema, nullptr, nullptr, nullptr);
        if ((result & 0xFF) != SQLITE_BUSY) break;
        Sql().sleep(kRetryMilliseconds);
    }
    Check(result);
}

sqlite3* ForWriting() {
    Store& store = TheStore();
    sqlite3* connection = ForReading();
    if (connection == nullptr) {
        const std::string path = FilePath();
        native::MakeDataFolder();
        Remember(path, Open(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE));
        connection = store.connection.get();
    }
    if (!store.prepared) {
        Prepare(connection);
        store.prepared = true;
    }
    return connection;
}

// The last part of a key's path as it is stored; empty for a root.
std::string StoredName(std::u16string_view key) {
    const std::size_t last = key.find_last_not_of(u'\\');
    if (last == kNotFound) return {};
    const std::u16string_view whole = key.substr(0, last + 1);
    return Utf16ToUtf8(ToUpper(whole.substr(whole.rfind(u'\\') + 1)));
}

// What a step that reads at a path gives; nothing where it fails.
template <class Step>
auto Reading(const StorePath& path, Step&& step) -> decltype(step(nullptr)) {
    try {
        const bool isOpen = TheStore().connection != nullptr;
        if (!isOpen && native::HoldsNoKey(FilePath(), StoredName(path.key))) return {};
        sqlite3* connection = ForReading();
        if (connection != nullptr) return step(connection);
    } catch (const Failure&) {
        TheStore().connection.reset();
    }
    return {};
}

// Runs a step as one transaction that begins by taking the write lock, so that what it reads holds.
template <class Step>
auto Writing(Step&& step) -> decltype(step(nullptr)) {
    sqlite3* connection = ForWriting();
    Check(Sql().exec(connection, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr));
    try {
        auto result = step(connection);
        Check(Sql().exec(connection, "COMMIT", nullptr, nullptr, nullptr));
        return result;
    } catch (const Failure&) {
        Sql().exec(connection, "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
}

// Roots have ids below zero, where no row has one.
std::int64_t RootId(std::int32_t root) { return -std::int64_t{static_cast<std::uint32_t>(root)}; }

std::optional<std::int64_t> FindChild(sqlite3* connection, std::int64_t parent,
                                      std::u16string_view name) {
    Query query(connection, kFindKey);
    query.Bind(1, parent).Bind(2, ToUpper(name));
    if (!query.Next()) return std::nullopt;
    return query.Number(0);
}

std::int64_t AddChild(sqlite3* connection, std::int64_t parent, std::u16string_view name) {
    Query query(connection, kAddKey);
    query.Bind(1, parent).Bind(2, ToUpper(name)).Bind(3, name).Next();
    return query.Number(0);
}

enum class Missing : std::uint8_t { kFail, kMake };

// The id of a key; nothing when it isn't there and isn't to be made.
std::optional<std::int64_t> KeyId(sqlite3* connection, const StorePath& path, Missing missing) {
    std::int64_t id = RootId(path.root);
    for (const std::u16string_view part : Split(path.key, u"\\")) {
        if (part.empty()) continue;
        const std::optional<std::int64_t> child = FindChild(connection, id, part);
        if (!child && missing == Missing::kFail) return std::nullopt;
        id = child ? *child : AddChild(connection, id, part);
    }
    return id;
}

std::vector<std::u16string> Names(const StorePath& path, const char* sql) {
    return Reading(path, [&](sqlite3* connection) {
        std::vector<std::u16string> names;
        const std::optional<std::int64_t> id = KeyId(connection, path, Missing::kFail);
        if (!id) return names;
        Query query(connection, sql);
        query.Bind(1, *id);
        while (query.Next()) names.push_back(query.Text(0));
        return names;
    });
}

bool HasChildren(sqlite3* connection, std::int64_t id) {
    Query query(connection, kSubkeys);
    return query.Bind(1, id).Next();
}

}  // namespace

std::optional<StoredValue> ReadStoredValue(const StorePath& path, std::u16string_view name) {
    return Reading(path, [&](sqlite3* connection) -> std::optional<StoredValue> {
        const std::optional<std::int64_t> id = KeyId(connection, path, Missing::kFail);
        if (!id) return std::nullopt;
        Query query(connection, kReadValue);
        if (!query.Bind(1, *id).Bind(2, ToUpper(name)).Next()) return std::nullopt;
        return StoredValue{static_cast<std::int32_t>(query.Number(0)), query.Bytes(1)};
    });
}

bool HasStoredKey(const StorePath& path) {
    return Reading(path, [&](sqlite3* connection) {
        return KeyId(connection, path, Missing::kFail).has_value();
    });
}

std::vector<std::u16string> StoredSubkeys(const StorePath& path) { return Names(path, kSubkeys); }

std::vector<std::u16string> StoredValueNames(const StorePath& path) {
    return Names(path, kValueNames);
}

void WriteStoredValue(const StorePath& path, std::u16string_view name, const StoredValue& value) {
    Writing([&](sqlite3* connection) {
        const std::int64_t id = *KeyId(connection, path, Missing::kMake);
        Query query(connection, kWriteValue);
        query.Bind(1, id).Bind(2, ToUpper(name)).Bind(3, name);
        return query.Bind(4, value.type).BindBytes(5, value.bytes).Next();
    });
}

bool DeleteStoredValue(const StorePath& path, std::u16string_view name) {
    if (!ReadStoredValue(path, name)) return false;
    return Writing([&](sqlite3* connection) {
        const std::optional<std::int64_t> id = KeyId(connection, path, Missing::kFail);
        if (!id) return false;
        Query(connection, kDeleteValue).Bind(1, *id).Bind(2, ToUpper(name)).Next();
        return Sql().changes(connection) > 0;
    });
}

bool DeleteStoredKey(const StorePath& path, bool withSubkeys) {
    if (!HasStoredKey(path)) return false;
    return Writing([&](sqlite3* connection) {
        const std::optional<std::int64_t> id = KeyId(connection, path, Missing::kFail);
        if (!id || *id < 0) return false;
        if (!withSubkeys && HasChildren(connection, *id)) return false;
        Query(connection, kDeleteEntriesBelow).Bind(1, *id).Next();
        Query(connection, kDeleteKeysBelow).Bind(1, *id).Next();
        return true;
    });
}

void CloseSettingsStore() { TheStore().connection.reset(); }

}  // namespace velm
