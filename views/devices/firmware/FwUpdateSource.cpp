#include "views/devices/firmware/FwUpdateSource.h"

namespace {

constexpr std::string_view kSlashes = "/\\";
constexpr std::size_t kMaxNameLength = 255; // bytes, of the file system

bool isSlash(char c) {
    return kSlashes.find(c) != std::string_view::npos;
}

} // namespace

std::string joinedFileName(const std::string& location, const std::string& fileName) {
    const bool hasSlash =
        (!location.empty() && isSlash(location.back())) || (!fileName.empty() && isSlash(fileName.front()));
    return location + (hasSlash ? "" : "/") + fileName;
}

std::string uploadTarget(std::string_view clientFileName) {
    const std::size_t slash = clientFileName.find_last_of(kSlashes);
    const std::string_view name =
        slash == std::string_view::npos ? clientFileName : clientFileName.substr(slash + 1);
    if (name.empty() || name == "." || name == ".." || name.size() > kMaxNameLength ||
        name.find('\0') != std::string_view::npos)
        return "";
    return "/tmp/" + std::string(name);
}
