#pragma once

#include <Wt/WResource.h>

#include <iosfwd>

namespace Wt {

/// A resource whose bytes come from a stream, in pieces.
class WStreamResource : public WResource {
public:
    explicit WStreamResource(WObject* parent = nullptr);
    explicit WStreamResource(const std::string& mimeType, WObject* parent = nullptr);
    ~WStreamResource() override;

    void setMimeType(const std::string& mimeType);
    /// Bytes of one piece.
    void setBufferSize(int size) { mBufferSize = size; }

    const std::string& mimeType() const { return mMimeType; }
    int bufferSize() const { return mBufferSize; }

protected:
    /// Sends one piece of `input` and arranges for the next.
    void handleRequestPiecewise(const Http::Request& request, Http::Response& response, std::istream& input);

private:
    std::string mMimeType = "application/octet-stream";
    int mBufferSize = 8192;
};

} // namespace Wt
