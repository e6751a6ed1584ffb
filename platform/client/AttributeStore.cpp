#include "platform/client/AttributeStore.h"

#include "platform/client/Attributes.h"
#include "platform/client/EventLog.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string_view>

namespace {

constexpr const char* kDefaultPath = "/etc/mirl/attributes";

std::string_view trim(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

} // namespace

AttributeStore::AttributeStore(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string text(kFileMaxBytes + 1, '\0');
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(file.gcount()));
    if (!file.is_open() || file.bad()) {
        EventLog_write(2, 7, "AttributeStore", "No attributes: cannot read %s: %s.", path,
                       std::strerror(errno));
    } else if (text.size() > kFileMaxBytes) {
        EventLog_write(2, 7, "AttributeStore", "No attributes: %s is larger than %zu bytes.", path,
                       kFileMaxBytes);
    } else {
        parse(text);
    }
}

void AttributeStore::parse(const std::string& text) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        const std::string_view whole = trim(line);
        const std::size_t equals = whole.find('=');
        if (whole.starts_with('#') || equals == whole.npos || equals == 0) continue;
        mValues[std::string(trim(whole.substr(0, equals)))] = trim(whole.substr(equals + 1));
    }
}

const char* AttributeStore::get(const char* key) const {
    const auto found = key ? mValues.find(std::string_view(key)) : mValues.end();
    return found == mValues.end() ? nullptr : found->second.c_str();
}

const char* Attributes_getString(const char* key, const char* fallback) {
    // Never destroyed: the texts are promised for the life of the process.
    static const AttributeStore* const sStore = [] {
        const char* path = std::getenv("MIRL_ATTRIBUTES");
        return new AttributeStore(path && *path ? path : kDefaultPath);
    }();
    const char* value = sStore->get(key);
    return value ? value : fallback;
}
