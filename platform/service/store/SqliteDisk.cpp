#include "platform/service/store/SqliteDisk.h"

#include "platform/service/catalogue/Catalogue.h"
#include "platform/service/store/Store.h"
#include "platform/service/store/StoredRecord.h"

#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <iterator>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace zeqd {

namespace {

constexpr int kApplication = 0x5A455144; ///< marks the file as ours
constexpr int kVersion = 2;
/// Step i leads from version i to the next.
constexpr const char* kSteps[] = {
    "CREATE TABLE record(resource TEXT NOT NULL, id INTEGER NOT NULL, body TEXT NOT NULL, "
    "PRIMARY KEY(resource, id)) WITHOUT ROWID",
    // The highest index that a removed record had: a number is never given to another record, since lists of
    // targets and pages that are open may still name it.
    "CREATE TABLE retired(resource TEXT PRIMARY KEY NOT NULL, id INTEGER NOT NULL) WITHOUT ROWID",
};
static_assert(std::size(kSteps) == kVersion);
constexpr const char* kAside = ".damaged-"; ///< between a database's name and when it was set aside
constexpr int kBusyMs = 2000;               ///< a reader such as the sqlite3 shell may be looking

bool damage(int code) {
    return (code & 0xFF) == SQLITE_CORRUPT || (code & 0xFF) == SQLITE_NOTADB || code == SQLITE_IOERR_READ ||
           code == SQLITE_IOERR_SHORT_READ || code == SQLITE_IOERR_CORRUPTFS || code == SQLITE_IOERR_DATA;
}

[[noreturn]] void fail(sqlite3* database, const std::string& what) {
    const std::string text = what + ": " + sqlite3_errmsg(database);
    if (damage(sqlite3_extended_errcode(database))) throw DatabaseDamaged(text);
    throw std::runtime_error(text);
}

int readNumber(void* result, int columns, char** values, char**) {
    if (columns > 0 && values[0]) *static_cast<std::string*>(result) = values[0];
    return 0;
}

std::string ask(sqlite3* database, const char* sql) {
    std::string result;
    if (sqlite3_exec(database, sql, readNumber, &result, nullptr) != SQLITE_OK) fail(database, sql);
    return result;
}

std::string_view columnText(sqlite3_stmt* statement, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return text ? std::string_view(text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column)))
                : std::string_view();
}

} // namespace

SqliteDisk::SqliteDisk(const std::string& path) : mPath(path) {
    try {
        open(path);
    } catch (...) {
        close();
        throw;
    }
}

SqliteDisk::~SqliteDisk() {
    close();
}

void SqliteDisk::close() {
    for (sqlite3_stmt** statement : {&mPut, &mRemove, &mRetire})
        sqlite3_finalize(std::exchange(*statement, nullptr));
    sqlite3_close(std::exchange(mDatabase, nullptr));
}

void SqliteDisk::open(const std::string& path) {
    std::error_code none;
    const bool fresh = !std::filesystem::exists(path, none);
    // A database is put in its place when it is complete: one that is there is never to be begun.
    if (!fresh && std::filesystem::file_size(path, none) == 0) throw DatabaseDamaged(path + " is empty");
    const mode_t mask = umask(0077);
    const int opened =
        sqlite3_open_v2(path.c_str(), &mDatabase,
                        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_EXRESCODE, nullptr);
    umask(mask);
    if (opened != SQLITE_OK) fail(mDatabase, path);
    sqlite3_busy_timeout(mDatabase, kBusyMs);
    run("PRAGMA journal_mode=WAL");
    run("PRAGMA synchronous=FULL");
    run("PRAGMA wal_autocheckpoint=1000");
    run("PRAGMA journal_size_limit=16777216"); // bytes; one large write is no reason to keep its room
    run("PRAGMA secure_delete=ON");            // hashes of former passwords do not stay in free pages
    run("PRAGMA cache_size=-2048");
    migrate(fresh);
    const std::string check = ask(mDatabase, "PRAGMA quick_check(1)");
    if (check != "ok") throw DatabaseDamaged(path + ": " + check);
    mPut = prepare("INSERT INTO record(resource, id, body) VALUES(?1, ?2, ?3) "
                   "ON CONFLICT(resource, id) DO UPDATE SET body = excluded.body");
    mRemove = prepare("DELETE FROM record WHERE resource = ?1 AND id = ?2");
    mRetire = prepare("INSERT INTO retired(resource, id) VALUES(?1, ?2) "
                      "ON CONFLICT(resource) DO UPDATE SET id = max(id, excluded.id)");
}

void SqliteDisk::migrate(bool fresh) {
    const int application = std::stoi(ask(mDatabase, "PRAGMA application_id"));
    const int version = std::stoi(ask(mDatabase, "PRAGMA user_version"));
    if (!fresh && (application != kApplication || version < 1))
        throw DatabaseDamaged(mPath + " has no head of a database of this service");
    if (version > kVersion)
        throw std::runtime_error("the database is of version " + std::to_string(version) +
                                 ", newer than this program's " + std::to_string(kVersion));
    if (version == kVersion) return;
    run("BEGIN IMMEDIATE");
    for (std::size_t i = static_cast<std::size_t>(version); i < std::size(kSteps); ++i) run(kSteps[i]);
    run(("PRAGMA application_id=" + std::to_string(kApplication)).c_str());
    run(("PRAGMA user_version=" + std::to_string(kVersion)).c_str());
    run("COMMIT");
}

void SqliteDisk::run(const char* sql) {
    if (sqlite3_exec(mDatabase, sql, nullptr, nullptr, nullptr) != SQLITE_OK) fail(mDatabase, sql);
}

sqlite3_stmt* SqliteDisk::prepare(const char* sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v3(mDatabase, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr) != SQLITE_OK)
        fail(mDatabase, sql);
    return statement;
}

std::size_t SqliteDisk::load(Store& store) {
    sqlite3_stmt* statement = prepare("SELECT resource, id, body FROM record");
    std::size_t count = 0;
    int step;
    while ((step = sqlite3_step(statement)) == SQLITE_ROW) {
        StoredRecord stored = readStored(columnText(statement, 0), sqlite3_column_int64(statement, 1),
                                         columnText(statement, 2));
        if (!stored.sound) {
            sqlite3_finalize(statement);
            throw DatabaseDamaged("a record is not readable");
        }
        store.load(std::move(stored.record));
        ++count;
    }
    sqlite3_finalize(statement);
    if (step != SQLITE_DONE) fail(mDatabase, "reading the records");
    loadRetired(store);
    return count;
}

void SqliteDisk::loadRetired(Store& store) {
    sqlite3_stmt* statement = prepare("SELECT resource, id FROM retired");
    int step;
    while ((step = sqlite3_step(statement)) == SQLITE_ROW)
        if (const ResourceRow* row = findResource(columnText(statement, 0)))
            store.retire(row->id, static_cast<std::uint32_t>(sqlite3_column_int64(statement, 1)));
    sqlite3_finalize(statement);
    if (step != SQLITE_DONE) fail(mDatabase, "reading the indexes that are used up");
}

bool SqliteDisk::put(const DiskChange& change) {
    return change.body ? execute(mPut, change) : execute(mRemove, change) && execute(mRetire, change);
}

bool SqliteDisk::execute(sqlite3_stmt* statement, const DiskChange& change) {
    const std::string_view name = resource(change.resource).name;
    sqlite3_bind_text(statement, 1, name.data(), static_cast<int>(name.size()), SQLITE_STATIC);
    sqlite3_bind_int64(statement, 2, change.index);
    if (change.body)
        sqlite3_bind_text(statement, 3, change.body->data(), static_cast<int>(change.body->size()),
                          SQLITE_STATIC);
    const bool done = sqlite3_step(statement) == SQLITE_DONE;
    sqlite3_reset(statement);
    sqlite3_clear_bindings(statement);
    return done;
}

std::string SqliteDisk::write(const std::vector<DiskChange>& changes) {
    try {
        if (!mDatabase) throw std::runtime_error("the database is not open");
        run("BEGIN IMMEDIATE");
        for (const DiskChange& change : changes)
            if (!put(change)) fail(mDatabase, "writing a record");
        run("COMMIT");
    } catch (const std::exception& error) {
        std::string what = error.what();
        mDamaged = dynamic_cast<const DatabaseDamaged*>(&error) != nullptr;
        sqlite3_exec(mDatabase, "ROLLBACK", nullptr, nullptr, nullptr);
        // A commit whose sync failed may stand in the log and come back with the next start, refused as it was.
        sqlite3_exec(mDatabase, "PRAGMA wal_checkpoint(TRUNCATE)", nullptr, nullptr, nullptr);
        return what;
    }
    mDamaged = false;
    return {};
}

void SqliteDisk::create(const std::string& path, const DiskContent& content) {
    const std::string fresh = path + ".new";
    for (const char* side : {"", "-wal", "-shm"}) std::filesystem::remove(fresh + side);
    {
        SqliteDisk disk(fresh);
        if (const std::string failure = disk.write(content.records); !failure.empty())
            throw std::runtime_error("cannot write the new database: " + failure);
        for (const auto& [id, index] : content.retired)
            if (!disk.execute(disk.mRetire, {id, index, std::nullopt}))
                fail(disk.mDatabase, "cannot write the new database");
    }
    if (std::filesystem::exists(path)) setAside(path, std::time(nullptr));
    std::filesystem::rename(fresh, path);
    const int folder =
        ::open(std::filesystem::path(path).parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0) return;
    ::fsync(folder);
    ::close(folder);
}

std::string SqliteDisk::renew(const DiskContent& content) {
    try {
        close();
        create(mPath, content);
        open(mPath);
        mDamaged = false;
        return {};
    } catch (const std::exception& error) {
        return error.what();
    }
}

Salvaged salvage(const std::string& path, Store& store) {
    Salvaged result;
    sqlite3* database = nullptr;
    // Forwards to the damage, and backwards to it.
    for (const char* order : {"", " ORDER BY resource DESC, id DESC"}) {
        sqlite3_stmt* statement = nullptr;
        int step = SQLITE_ERROR;
        if (sqlite3_open_v2(path.c_str(), &database, SQLITE_OPEN_READWRITE, nullptr) == SQLITE_OK &&
            sqlite3_prepare_v2(database,
                               (std::string("SELECT resource, id, body FROM record") + order).c_str(), -1,
                               &statement, nullptr) == SQLITE_OK)
            while ((step = sqlite3_step(statement)) == SQLITE_ROW) {
                StoredRecord stored = readStored(columnText(statement, 0), sqlite3_column_int64(statement, 1),
                                                 columnText(statement, 2));
                if (!stored.sound) ++result.lost;
                const bool there =
                    stored.record && result.found.contains({stored.record->id(), stored.record->index()});
                if (!stored.record || there) continue;
                result.found.emplace(stored.record->id(), stored.record->index());
                store.load(std::move(stored.record));
            }
        sqlite3_finalize(statement);
        sqlite3_close(database);
        if (step == SQLITE_DONE) break;
        result.cut = true;
    }
    // Which numbers were given lately is not known for sure.
    constexpr std::uint32_t kGap = 1000;
    for (const ResourceRow& row : catalogue())
        if (row.durable && row.shape == Shape::Table && row.methods != 0 && row.id != Res::ChangeStatus)
            store.retire(row.id, store.nextIndex(row.id) + kGap);
    return result;
}

std::string removeSetAside(const std::string& path) {
    namespace fs = std::filesystem;
    const std::string begin = fs::path(path).filename().string() + kAside;
    std::error_code failure;
    std::error_code first;
    std::vector<fs::path> found; // a folder that is read while it changes may leave some out
    for (fs::directory_iterator file(fs::path(path).parent_path(), failure), end; !failure && file != end;
         file.increment(failure))
        if (file->path().filename().string().starts_with(begin)) found.push_back(file->path());
    for (const fs::path& file : found)
        if (!fs::remove(file, failure) && failure) first = failure;
    return first ? path + kAside + "*: " + first.message() : std::string();
}

std::string setAside(const std::string& path, std::int64_t now) {
    std::string aside = path + kAside + std::to_string(now);
    for (const char* side : {"", "-wal", "-shm"})
        if (std::filesystem::exists(path + side)) std::filesystem::rename(path + side, aside + side);
    return aside;
}

} // namespace zeqd
