#ifndef TESTS_PLATFORM_SUPPORT_TEMPFOLDER_H
#define TESTS_PLATFORM_SUPPORT_TEMPFOLDER_H

#include <filesystem>

/// A new folder of its own below the system's temporary folder, removed with all it holds in the end.
class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const { return mPath; }

private:
    std::filesystem::path mPath;
};

#endif
