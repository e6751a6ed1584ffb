#pragma once

#include <string>
#include <vector>

/// A settings file for one administrator: made by the service, then taken out of the service's folder at once, so
/// that nobody else can fetch it, and removed with this object. It holds hashes of passwords.
class SettingsDownload {
public:
    SettingsDownload() = default;
    ~SettingsDownload();
    SettingsDownload(const SettingsDownload&) = delete;
    SettingsDownload& operator=(const SettingsDownload&) = delete;

    /// With a password, letters and digits, the file is protected by it. 0: path() is the file. 1: refused, no
    /// answer, or the file could not be taken.
    unsigned make(const std::string& password, std::vector<std::string>& errors);

    /// "settings.tar.gz", or "settings.cze" when it is protected.
    const std::string& name() const { return mName; }
    const std::string& path() const { return mPath; }

private:
    bool take();

    std::string mFolder; // our own; empty until there is one
    std::string mName;
    std::string mPath;
};
