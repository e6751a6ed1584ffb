#pragma once

#include <memory>
#include <string>
#include <vector>

namespace Wt {

/// Source of the texts behind WString::tr().
class WLocalizedStrings {
public:
    virtual ~WLocalizedStrings() = default;

    virtual void refresh() {}
    /// False if `key` is unknown; `result` is UTF-8.
    virtual bool resolveKey(const std::string& key, std::string& result) = 0;
    virtual bool resolvePluralKey(const std::string& key, std::string& result, unsigned long long amount);
};

} // namespace Wt
