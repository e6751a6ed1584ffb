// The value that several records share.

#include "db/Db.h"
#include "db/MergeValues.h"
#include "platform/client/ZeqRsp.h"

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
    return mergeValues(indexes, value, same, [&](unsigned index, unsigned& next) {
        unsigned row = 0;
        Errors dropped;
        if (findOffsetOfUInt32KeyInZeqRsp(rsp, "index", index, row, dropped) != 0) return 1U;
        next = static_cast<unsigned>(ZeqRspUtil_getIndexedIntegerParam(rsp, static_cast<int>(row), key));
        return 0U;
    });
}

unsigned Db::extractStringMerge(const json_t* rsp, const Indexes& indexes, const char* key,
                                std::string& value, bool& same) {
    return mergeValues(indexes, value, same, [&](unsigned index, std::string& next) {
        unsigned row = 0;
        Errors dropped;
        if (findOffsetOfUInt32KeyInZeqRsp(rsp, "index", index, row, dropped) != 0) return 1U;
        const char* text = ZeqRspUtil_getIndexedStringParam(rsp, static_cast<int>(row), key);
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
