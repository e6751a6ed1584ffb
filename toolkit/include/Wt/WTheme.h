#pragma once

#include <Wt/WObject.h>

#include <string>
#include <vector>

namespace Wt {

class WLink;

/// A look: style sheets that are loaded before the page is shown.
class WTheme : public WObject {
public:
    explicit WTheme(WObject* parent = nullptr) : WObject(parent) {}

    virtual std::string name() const = 0;
    /// URL of the theme's folder, with a slash at its end.
    virtual std::string resourcesUrl() const = 0;
    /// URLs of the style sheets in the order of loading.
    virtual std::vector<std::string> styleSheetUrls() const = 0;
};

} // namespace Wt
