// Settings files on disk.
#include "platform/service/archive/SettingsArchive.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace zeqd {

namespace {

constexpr mode_t kMode = 0640; ///< the interface reads it as a member of the service's group

constexpr const char* kFresh = ".new"; ///< behind the name of a file that is being made

const char* nameOf(bool sealed) {
    return sealed ? "/settings.cze" : "/settings.tar.gz";
}

class File {
public:
    explicit File(int fd) : mFd(fd) {}
    ~File() {
        if (mFd >= 0) close(mFd);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    int get() const { return mFd; }

private:
    int mFd;
};

bool writeAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(fd, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return fsync(fd) == 0;
}

bool readAll(int fd, std::string& bytes) {
    std::size_t at = 0;
    while (at < bytes.size()) {
        const ssize_t got = read(fd, bytes.data() + at, bytes.size() - at);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return false;
        at += static_cast<std::size_t>(got);
    }
    return true;
}

} // namespace

std::string saveSettings(const std::string& folder, std::string_view settings, const std::string& password) {
    const std::optional<std::string> bytes = packSettings(settings, password);
    if (!bytes) return "out of memory";
    if (bytes->size() > kMaxArchive) return "larger than a settings file may be";
    std::error_code failure;
    std::filesystem::create_directories(folder, failure);
    if (failure) return folder + ": " + failure.message();
    const std::string fresh = folder + nameOf(!password.empty()) + kFresh;
    unlink(fresh.c_str());
    const File file(open(fresh.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kMode));
    if (file.get() < 0 || !writeAll(file.get(), *bytes)) {
        const std::string why = fresh + ": " + std::strerror(errno);
        unlink(fresh.c_str());
        return why;
    }
    return {};
}

std::string publishSettings(const std::string& folder, bool sealed) {
    const std::string name = folder + nameOf(sealed);
    if (rename((name + kFresh).c_str(), name.c_str()) != 0) return name + ": " + std::strerror(errno);
    // A file without a password does not stay beside one that was made with care.
    unlink((folder + nameOf(!sealed)).c_str());
    const File opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened.get() < 0 || fsync(opened.get()) != 0) return folder + ": " + std::strerror(errno);
    return {};
}

std::string dropSettings(const std::string& folder, bool sealed) {
    const std::string fresh = folder + nameOf(sealed) + kFresh;
    return unlink(fresh.c_str()) == 0 ? std::string() : fresh + ": " + std::strerror(errno);
}

std::string removeSettings(const std::string& folder) {
    for (const char* name :
         {"/settings.tar.gz", "/settings.cze", "/settings.tar.gz.new", "/settings.cze.new"})
        if (unlink((folder + name).c_str()) != 0 && errno != ENOENT && errno != ENOTDIR)
            return folder + name + ": " + std::strerror(errno);
    return {};
}

std::optional<std::string> loadSettings(const std::string& path, const std::string& password,
                                        std::string& why) {
    const File file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat info {};
    why = "service.detail.settings_file";
    if (file.get() < 0 || fstat(file.get(), &info) != 0 || !S_ISREG(info.st_mode)) return std::nullopt;
    why = "service.detail.settings_foreign";
    if (info.st_size <= 0 || static_cast<std::size_t>(info.st_size) > kMaxArchive) return std::nullopt;
    std::string bytes(static_cast<std::size_t>(info.st_size), '\0');
    if (!readAll(file.get(), bytes)) return std::nullopt;
    return unpackSettings(bytes, password, why);
}

} // namespace zeqd
