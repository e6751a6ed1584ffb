#pragma once

#include "platform/client/ZeqTypes.h"

#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

/// Records of the database, held while a page is read: while one is in use on a thread, the reads and
/// searches of Db there take single values out of it, and each record is asked for once instead of once for
/// each value. What changes meanwhile is not seen. Devices, connections, logins and singletons are held as a
/// whole at the first read of a value; of others (a user's record is large) only what fetch() asked for.
class HeldRecords {
public:
    using Errors = std::vector<std::string>;
    using Indexes = std::vector<unsigned>;
    using Keys = std::vector<std::string>;
    using Place = std::pair<unsigned, unsigned>; // index of the Switch, number of the port

    /// Puts one to use on this thread. Uses may be nested; the outermost one counts.
    class Use {
    public:
        explicit Use(HeldRecords& held);
        ~Use();
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;

    private:
        bool mOutermost;
    };
    /// The one in use on this thread, null if none is.
    static HeldRecords* inUse();
    /// The same if it holds this value or would: null = the value is to be read by itself.
    static HeldRecords* covering(const char* resource, unsigned index, const char* key);
    /// Whether records of this resource are held as a whole.
    static bool holdsWhole(const char* resource);

    /// For one that lives from refresh to refresh: drops what may have changed since it was read, as one
    /// request for the change counters tells.
    void dropChanged();
    void clear();

    /// Asks with one request for keys of these records ({0}: of the singleton, {}: of all that there are) and holds the
    /// answer, which stays until the next fetch of the resource. Null when the service refused or gave no answer. Of all
    /// records there may be none.
    const json_t* fetch(const char* resource, const Indexes& indexes, const Keys& keys);
    /// The row of a value that is covered; null after a failure, which is told in `errors` the first time.
    const json_t* row(const char* resource, unsigned index, const char* key, Errors& errors);
    /// As Db::findIndexOfUInt32Key, of a resource that is held as a whole.
    unsigned find(const char* resource, const char* key, unsigned value, unsigned& index);
    /// Something could not be read.
    bool failed() const { return mFailed; }

    /// Where devices are plugged in, as far as the port tables were read.
    struct Ports {
        std::map<std::string, Place> places; // by EID
        unsigned tables = 0;                 // read so far, from the first
    };
    Ports ports;

private:
    using Row = std::shared_ptr<const json_t>; // shares the answer that it is part of; null: refused

    struct Table {
        std::map<unsigned, Row> records;
        std::map<std::pair<std::string, unsigned>, unsigned> found; // by key and value; 0 = none
        std::shared_ptr<json_t> fetched;
        std::set<std::string, std::less<>> fetchedKeys;
        bool fetchedAll = false;
        std::set<std::string, std::less<>> sorted; // keys by whose values `found` has all records
        std::map<unsigned, const json_t*> fetchedRows;
    };

    static void sortBy(Table& table, const char* key);
    const json_t* fetchedRow(const char* resource, unsigned index, const char* key) const;
    Row ask(const char* resource, unsigned index, Errors& errors);

    std::map<std::string, Table> mTables;   // by resource
    std::map<unsigned, unsigned> mCounters; // of changes, by kind of data
    bool mSilent = false;                   // the service gave no answer: it is not asked again
    bool mFailed = false;
};
