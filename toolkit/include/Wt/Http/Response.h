#pragma once

#include <Wt/Http/ResponseContinuation.h>

#include <cstdint>
#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

namespace Wt {

class WResource;
namespace Impl {
class ResourceAnswer;
}

namespace Http {

/// The answer to a request for a resource.
class Response {
public:
    void setStatus(int status) { mStatus = status; }
    void setContentLength(::uint64_t bytes) { mLength = static_cast<::int64_t>(bytes); }
    void setMimeType(const std::string& mimeType) { mMimeType = mimeType; }
    void addHeader(const std::string& name, const std::string& value);
    /// Body bytes of this piece.
    std::ostream& out() { return *mOut; }
    /// More will follow: handleRequest() is called again when the browser has taken this piece.
    ResponseContinuation* createContinuation();

    ResponseContinuation* continuation() const { return mContinuation; }

private:
    friend class Impl::ResourceAnswer;
    friend class ::Wt::WResource;

    explicit Response(std::ostream& out) : mOut(&out) {}

    std::ostream* mOut;
    int mStatus = 200;
    ::int64_t mLength = -1;
    std::string mMimeType;
    std::vector<std::pair<std::string, std::string>> mHeaders;
    ResponseContinuation* mContinuation = nullptr; // of the answer; null at its first piece
    ResponseContinuation* mNext = nullptr;         // what createContinuation() gives
    bool mContinues = false;
};

} // namespace Http
} // namespace Wt
