#include "frame/MoveFile.h"

#include <filesystem>

// A rename where both are on one file system, else a copy beside the target that takes its place when it is
// whole. A link standing at the target is replaced, not followed.
bool moveFile(const std::string& from, const std::string& to) {
    std::error_code error;
    std::filesystem::rename(from, to, error);
    if (!error) return true;
    const std::string part = to + ".part";
    std::filesystem::remove(part, error);
    if (std::filesystem::copy_file(from, part, error) && !error) {
        std::filesystem::rename(part, to, error);
        if (!error) {
            std::filesystem::remove(from, error);
            return true;
        }
    }
    std::filesystem::remove(part, error);
    return false;
}
