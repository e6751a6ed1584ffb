// The database file: one table of records as JSON text, written ahead and synced before a write is answered.
#pragma once

#include "platform/service/store/Disk.h"

#include <set>
#include <stdexcept>

struct sqlite3;
struct sqlite3_stmt;

namespace zeqd {

class Store;

/// The file is not a sound database; it must be set aside before the service can go on.
struct DatabaseDamaged : std::runtime_error {
    using std::runtime_error::runtime_error;
};

class SqliteDisk : public Disk {
public:
    /// Opens or makes the file, readable by its owner alone. Throws DatabaseDamaged, or std::runtime_error
    /// when it cannot be opened, is of a newer version or is in use.
    explicit SqliteDisk(const std::string& path);
    ~SqliteDisk() override;
    SqliteDisk(const SqliteDisk&) = delete;
    SqliteDisk& operator=(const SqliteDisk&) = delete;

    /// Reads everything into the store. Answers the number of records. Throws DatabaseDamaged.
    std::size_t load(Store& store);

    std::string write(const std::vector<DiskChange>& changes) override;
    bool damaged() const override { return mDamaged; }
    std::string renew(const DiskContent& content) override;

    /// Makes a database of this content and puts it in its place when it is complete; what is there is set
    /// aside. Throws std::runtime_error or std::filesystem::filesystem_error.
    static void create(const std::string& path, const DiskContent& content);

private:
    void open(const std::string& path);
    void migrate(bool fresh);
    void close();
    void run(const char* sql);
    sqlite3_stmt* prepare(const char* sql);
    bool put(const DiskChange& change);
    bool execute(sqlite3_stmt* statement, const DiskChange& change);
    void loadRetired(Store& store);

    std::string mPath;
    bool mDamaged = false;
    sqlite3* mDatabase = nullptr;
    sqlite3_stmt* mPut = nullptr;
    sqlite3_stmt* mRemove = nullptr;
    sqlite3_stmt* mRetire = nullptr;
};

struct Salvaged {
    std::set<std::pair<Res, std::uint32_t>> found;
    std::size_t lost = 0; ///< records that cannot be read, or not be believed
    bool cut = false;     ///< there may be more that nothing is known of
};

/// Loads what can be read of a damaged database.
Salvaged salvage(const std::string& path, Store& store);

/// Renames a damaged database and its side files, and answers the new name. Throws when that fails.
std::string setAside(const std::string& path, std::int64_t now);

/// Removes every database that was set aside from this path. Answers what failed.
std::string removeSetAside(const std::string& path);

} // namespace zeqd
