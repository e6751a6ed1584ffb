#pragma once

#include "server/HttpRequest.h"

#include <cstddef>
#include <memory>
#include <string_view>

namespace Wt::Impl {

/// Reads one HTTP/1.x request from bytes as they arrive: first the head, then the body's bytes without their
/// framing. Knows nothing of sockets.
class RequestParser {
public:
    RequestParser();
    ~RequestParser();

    /// Ready for the next request of the connection. `bodyLimit` is set later by allowBody().
    void reset();

    /// Reads the head. Returns how many bytes were used; the caller gives the rest again together with more.
    /// After that one of headDone(), status() != 0 or neither ("more, please") holds.
    std::size_t putHead(std::string_view bytes);
    bool headDone() const;

    /// 0, or the status to refuse the request with: 400, 413, 414, 431, 501, 505.
    int status() const;

    /// The head's content, once headDone().
    const HttpRequest& request() const;

    /// Bytes the body may have; before putBody(). False (and status 413) if more are announced.
    bool allowBody(std::uint64_t limit);

    /// Reads from the body; `piece` gets the content found, a part of `bytes`.
    /// Returns how many bytes were used.
    std::size_t putBody(std::string_view bytes, std::string_view& piece);
    bool bodyDone() const;

private:
    class Parser;
    std::unique_ptr<Parser> mParser;
};

} // namespace Wt::Impl
