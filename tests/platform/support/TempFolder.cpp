#include "tests/platform/support/TempFolder.h"

#include <cerrno>
#include <cstdlib>
#include <string>
#include <system_error>

TempFolder::TempFolder() {
    std::string pattern = std::filesystem::temp_directory_path() / "mirl-XXXXXX";
    if (!::mkdtemp(pattern.data())) throw std::system_error(errno, std::generic_category(), pattern);
    mPath = pattern;
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(mPath, ignored);
}
