#pragma once

#include <Wt/WTheme.h>

namespace Wt {

/// A theme of plain style sheets. "default" and "polished" are built in;
/// the empty name has no rules of its own.
class WCssTheme : public WTheme {
public:
    explicit WCssTheme(const std::string& name, WObject* parent = nullptr);

    std::string name() const override { return mName; }
    std::string resourcesUrl() const override;
    std::vector<std::string> styleSheetUrls() const override;

private:
    std::string mName;
};

} // namespace Wt
