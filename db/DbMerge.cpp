// The value that several records share.

#include "db/Db.h"
#include "db/MergeValues.h"
#include "platform/client/ZeqRsp.h"

namespace {

/// Finds the rows of a held table by their "index". An answer mostly has them in the order in which they were
/// asked for: the search goes on behind the row found last before it begins at the top.
class RowFinder {
public:
    explicit RowFinder(const json_t* table) : mTable(table) {}

    /// 0, or 1 when no row has that index.
    unsigned find(unsigned index, int& row) {
        Db::Errors dropped;
        unsigned found = static_cast<unsigned>(mNext);
        const bool next =
            mNext < ZeqRspUtil_numEntries(mTable) &&
            static_cast<unsigned>(ZeqRspUtil_getIndexedIntegerParam(mTable, mNext, "index")) == index;
        if (!next && Db::db.findOffsetOfUInt32KeyInZeqRsp(mTable, "index", index, found, dropped) != 0)
            return 1;
        row = static_cast<int>(found);
        mNext = row + 1;
        return 0;
    }

private:
    const json_t* mTable;
    int mNext = 0;
};

} // namespace

unsigned Db::readUInt32Merge(const char* resource, const Indexes& indexes, const char* key, unsigned& value,
                             bool& same, Errors& errors) {
    return mergeValues(indexes, value, same, [&](unsigned index, unsigned& next) {
        return readUInt32(resource, index, key, next, errors);
    });
}

unsigned Db::readStringMerge(const char* resource, const Indexes& indexes, const char* key,
                             std::string& value, Errors& errors) {
    bool same = true;
    return readStringMerge(resource, indexes, key, value, same, errors);
}

unsigned Db::readStringMerge(const char* resource, const Indexes& indexes, const char* key,
                             std::string& value, bool& same, Errors& errors) {
    return mergeValues(indexes, value, same, [&](unsigned index, std::string& next) {
        return readString(resource, index, key, next, errors);
    });
}

unsigned Db::extractUInt32Merge(const json_t* rsp, const Indexes& indexes, const char* key, unsigned& value,
                                bool& same) {
    RowFinder rows(rsp);
    return mergeValues(indexes, value, same, [&](unsigned index, unsigned& next) {
        int row = 0;
        if (rows.find(index, row) != 0) return 1U;
        next = static_cast<unsigned>(ZeqRspUtil_getIndexedIntegerParam(rsp, row, key));
        return 0U;
    });
}

unsigned Db::extractStringMerge(const json_t* rsp, const Indexes& indexes, const char* key,
                                std::string& value, bool& same) {
    RowFinder rows(rsp);
    return mergeValues(indexes, value, same, [&](unsigned index, std::string& next) {
        int row = 0;
        if (rows.find(index, row) != 0) return 1U;
        const char* text = ZeqRspUtil_getIndexedStringParam(rsp, row, key);
        if (!text) return 1U;
        next = text;
        return 0U;
    });
}

unsigned Db::extractEnableDisableMerge(const json_t* rsp, const Indexes& indexes, const char* key,
                                       bool& value, bool& same) {
    value = false;
    std::string text;
    const unsigned result = extractStringMerge(rsp, indexes, key, text, same);
    if (result == 0) value = text == "enabled";
    return result;
}
