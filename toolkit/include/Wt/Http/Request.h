#pragma once

#include <Wt/WEnvironment.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace Wt {

class WResource;

namespace Impl {
class ResourceExchange;
class ResourceAnswer;
} // namespace Impl

namespace Http {

class ResponseContinuation;

/// A file that came with a request, spooled. Removed with the request unless stolen.
class UploadedFile {
public:
    UploadedFile() = default;
    UploadedFile(const std::string& spoolName, const std::string& clientFileName,
                 const std::string& contentType)
        : mSpoolName(spoolName), mClientName(clientFileName), mContentType(contentType) {}

    const std::string& spoolFileName() const { return mSpoolName; }
    const std::string& clientFileName() const { return mClientName; }
    const std::string& contentType() const { return mContentType; }
    /// The caller owns the file from now on.
    void stealSpoolFile() const { mStolen = true; }
    bool isStolen() const { return mStolen; }

private:
    std::string mSpoolName, mClientName, mContentType;
    mutable bool mStolen = false;
};

typedef std::multimap<std::string, UploadedFile> UploadedFileMap;

/// A request for a resource. Foreign data.
class Request {
public:
    Request(const ParameterMap& parameters, const UploadedFileMap& files);

    const ParameterMap& getParameterMap() const { return mParameters; }
    const ParameterValues& getParameterValues(const std::string& name) const;
    const std::string* getParameter(const std::string& name) const;
    const UploadedFileMap& uploadedFiles() const { return mFiles; }
    const UploadedFile* getUploadedFile(const std::string& name) const;
    /// Bytes announced of a body that was refused for its size; 0 if none was.
    ::int64_t tooLarge() const { return mTooLarge; }
    std::string method() const { return mMethod; }
    std::string path() const { return mPath; }
    std::string headerValue(const std::string& name) const;
    /// Null at the first piece of an answer.
    ResponseContinuation* continuation() const { return mContinuation; }

private:
    friend class Impl::ResourceAnswer;
    friend class ::Wt::WResource;

    ParameterMap mParameters;
    UploadedFileMap mFiles;
    std::map<std::string, std::string> mHeaders;
    std::string mMethod = "GET", mPath;
    ::int64_t mTooLarge = 0;
    ResponseContinuation* mContinuation = nullptr;
};

} // namespace Http
} // namespace Wt
