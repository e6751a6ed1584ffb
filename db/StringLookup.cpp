#include "db/StringLookup.h"

#include <cstring>

const char* StringLookup::keyToValue(const char* key) const {
    for (int i = 0; i < mCount; ++i)
        if (std::strcmp(mTable[i].key, key) == 0) return mTable[i].value;
    return nullptr;
}

const char* StringLookup::valueToKey(const char* value) const {
    for (int i = 0; i < mCount; ++i)
        if (std::strcmp(mTable[i].value, value) == 0) return mTable[i].key;
    return nullptr;
}
