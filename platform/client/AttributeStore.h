// The parsed attribute file. Internal to Attributes.h.
#ifndef PLATFORM_CLIENT_ATTRIBUTESTORE_H
#define PLATFORM_CLIENT_ATTRIBUTESTORE_H

#include <map>
#include <string>

class AttributeStore {
public:
    static constexpr std::size_t kFileMaxBytes = 64 * 1024;

    /// Reads the file. One that is missing, unreadable or too large leaves the store empty and is logged
    /// once, at level 2. A line that is neither key = value, blank nor comment is skipped; a key given twice
    /// keeps its last value.
    explicit AttributeStore(const std::string& path);

    /// Null when absent. Lives as long as the store.
    const char* get(const char* key) const;

private:
    void parse(const std::string& text);

    std::map<std::string, std::string, std::less<>> mValues;
};

#endif
