#pragma once

#include <Wt/WStreamResource.h>

namespace Wt {

/// A file of the server, sent in pieces; 404 if it can't be read.
class WFileResource : public WStreamResource {
public:
    explicit WFileResource(WObject* parent = nullptr);
    explicit WFileResource(const std::string& fileName, WObject* parent = nullptr);
    WFileResource(const std::string& mimeType, const std::string& fileName, WObject* parent = nullptr);
    ~WFileResource() override;

    void setFileName(const std::string& fileName);
    const std::string& fileName() const { return mFile; }

    void handleRequest(const Http::Request& request, Http::Response& response) override;

private:
    std::string mFile;
};

} // namespace Wt
