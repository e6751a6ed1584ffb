#pragma once

#include "server/Multipart.h"
#include "server/Url.h"
#include "session/ResourceExchange.h"

#include <string>
#include <vector>

namespace Wt::Impl {

/// Writes the files of a multipart body to spool files and keeps its other fields. Removes the files that
/// nobody has taken.
class UploadSpool : public PartSink {
public:
    explicit UploadSpool(const std::string& folder) : mFolder(folder) {}
    UploadSpool(const UploadSpool&) = delete;
    UploadSpool& operator=(const UploadSpool&) = delete;
    ~UploadSpool() override;

    /// The files, now the caller's to remove.
    std::vector<SpooledFile> takeFiles();
    const Parameters& parameters() const { return mParameters; }

    int beginPart(const PartHead& head) override;
    int partData(std::string_view data) override;
    int endPart() override;

private:
    const std::string mFolder;
    std::vector<SpooledFile> mFiles;
    Parameters mParameters;
    std::size_t mFieldBytes = 0;
    std::string mName; ///< of the field under way
    std::string mValue;
    int mDescriptor = -1; ///< of the file under way
};

} // namespace Wt::Impl
