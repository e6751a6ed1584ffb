#include "server/UploadSpool.h"

#include "core/Limits.h"
#include "core/Log.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace Wt::Impl {

namespace {

int refuseFull(const char* what) {
    log(LogLevel::Error, "upload", std::string(what) + ": " + std::strerror(errno));
    return 503;
}

} // namespace

UploadSpool::~UploadSpool() {
    if (mDescriptor >= 0) ::close(mDescriptor);
    for (const SpooledFile& file : mFiles) ::unlink(file.spoolPath.c_str());
}

std::vector<SpooledFile> UploadSpool::takeFiles() {
    return std::exchange(mFiles, {});
}

int UploadSpool::beginPart(const PartHead& head) {
    mName = head.name;
    mValue.clear();
    if (!head.isFile) return 0;
    if (mFiles.size() >= kMultipartFiles) return 400;
    std::string path = mFolder + "/wt-upload-XXXXXX";
    mDescriptor = ::mkostemp(path.data(), O_CLOEXEC); // mode 0600
    if (mDescriptor < 0) return refuseFull("can't make a spool file");
    SpooledFile file;
    file.field = head.name;
    file.clientName = head.fileName;
    file.mimeType = head.mimeType;
    file.spoolPath = std::move(path);
    mFiles.push_back(std::move(file));
    return 0;
}

int UploadSpool::partData(std::string_view data) {
    if (mDescriptor < 0) {
        mFieldBytes += data.size();
        if (mFieldBytes > kFormBytes) return 413;
        mValue.append(data);
        return 0;
    }
    mFiles.back().size += data.size();
    while (!data.empty()) {
        const ssize_t written = ::write(mDescriptor, data.data(), data.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return refuseFull("can't write a spool file");
        data.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

int UploadSpool::endPart() {
    if (mDescriptor < 0) {
        mParameters[mName].push_back(std::move(mValue));
        return 0;
    }
    const int closed = ::close(std::exchange(mDescriptor, -1));
    return closed == 0 ? 0 : refuseFull("can't close a spool file");
}

} // namespace Wt::Impl
