#pragma once

#include <Wt/WLocalizedStrings.h>

namespace Wt {

namespace Impl {
struct MessageFile;
}

/// Texts from XML files: `<messages><message id="KEY">TEXT</message>…</messages>`. One parse per file and
/// process, shared by all sessions.
class WMessageResourceBundle : public WLocalizedStrings {
public:
    WMessageResourceBundle();
    ~WMessageResourceBundle() override;

    /// Adds `path` + ".xml"; for locale "en" `path` + "_en.xml" goes before it if it exists. Files added
    /// first win. A file that is missing or no XML is told on standard error and adds nothing.
    void use(const std::string& path, bool loadInMemory = true);

    void refresh() override;
    bool resolveKey(const std::string& key, std::string& result) override;
    bool resolvePluralKey(const std::string& key, std::string& result, unsigned long long amount) override;

private:
    std::vector<std::shared_ptr<const Impl::MessageFile>> mFiles;
};

} // namespace Wt
