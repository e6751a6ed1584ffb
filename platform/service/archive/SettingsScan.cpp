#include "platform/service/archive/SettingsScan.h"

#include <algorithm>

namespace zeqd {

namespace {

constexpr std::size_t kMaxDepth = 32;

class Scan {
public:
    explicit Scan(std::string_view text) : mRest(text) {}

    bool take(char wanted) {
        blanks();
        if (mRest.empty() || mRest.front() != wanted) return false;
        mRest.remove_prefix(1);
        return true;
    }
    bool atEnd() {
        blanks();
        return mRest.empty();
    }
    /// The next value as it stands there; empty when there is none.
    std::string_view value() {
        blanks();
        const std::string_view begin = mRest;
        std::size_t depth = 0;
        do {
            if (mRest.empty() || !step(depth)) return {};
        } while (depth > 0);
        return begin.substr(0, begin.size() - mRest.size());
    }

private:
    void blanks() { mRest.remove_prefix(std::min(mRest.find_first_not_of(" \t\r\n"), mRest.size())); }
    /// Over one bracket, text or run of other characters.
    bool step(std::size_t& depth) {
        const char c = mRest.front();
        if (c == '"') return text();
        if (c == '{' || c == '[') {
            mRest.remove_prefix(1);
            return ++depth <= kMaxDepth;
        }
        if (c == '}' || c == ']') {
            mRest.remove_prefix(1);
            return depth-- > 0;
        }
        const bool inside = depth > 0;
        mRest.remove_prefix(inside ? 1 : 0);
        const std::size_t end = mRest.find_first_of(inside ? "\"{}[]" : "\"{}[],: \t\r\n");
        if (!inside && end == 0) return false;
        mRest.remove_prefix(std::min(end, mRest.size()));
        return true;
    }
    bool text() {
        for (std::size_t i = 1; i < mRest.size(); ++i) {
            if (mRest[i] == '\\') {
                ++i;
            } else if (mRest[i] == '"') {
                mRest.remove_prefix(i + 1);
                return true;
            }
        }
        return false;
    }

    std::string_view mRest;
};

} // namespace

bool eachMember(std::string_view object,
                const std::function<bool(std::string_view key, std::string_view value)>& visit) {
    Scan scan(object);
    if (!scan.take('{')) return false;
    if (scan.take('}')) return scan.atEnd();
    do {
        const std::string_view key = scan.value();
        if (key.size() < 2 || key.front() != '"' || !scan.take(':')) return false;
        const std::string_view value = scan.value();
        if (value.empty() || !visit(key.substr(1, key.size() - 2), value)) return false;
    } while (scan.take(','));
    return scan.take('}') && scan.atEnd();
}

bool eachItem(std::string_view array, const std::function<bool(std::string_view item)>& visit) {
    Scan scan(array);
    if (!scan.take('[')) return false;
    if (scan.take(']')) return scan.atEnd();
    do {
        const std::string_view item = scan.value();
        if (item.empty() || !visit(item)) return false;
    } while (scan.take(','));
    return scan.take(']') && scan.atEnd();
}

std::size_t countValues(std::string_view text) {
    std::size_t count = 1;
    for (const char c : text) count += c == ',' || c == '{' || c == '[';
    return count;
}

} // namespace zeqd
