#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Wt::Impl {

/// What a part says of itself. UTF-8, no control characters; otherwise as the browser gave it.
struct PartHead {
    std::string name;
    std::string fileName;
    std::string mimeType;
    bool isFile = false;
};

/// Takes the parts of a multipart body as they arrive.
/// Each returns 0 or the status to refuse the request with.
class PartSink {
public:
    virtual ~PartSink() = default;
    virtual int beginPart(const PartHead& head) = 0;
    virtual int partData(std::string_view data) = 0;
    virtual int endPart() = 0;
};

/// RFC 7578 multipart/form-data, piece by piece, with bounded memory.
class MultipartParser {
public:
    /// `contentType`: the request's header.
    MultipartParser(std::string_view contentType, PartSink& sink);

    /// 0, or the status to refuse the request with. Not after a refusal.
    int feed(std::string_view bytes);

    /// Whether the closing boundary has come.
    bool complete() const { return mState == State::End; }

private:
    enum class State { Preamble, AfterBoundary, Head, Body, End, Broken };

    int takeData();
    int takeBoundaryEnd();
    int takeHead();
    int fail(int status);

    PartSink& mSink;
    std::string mDelimiter; ///< "\r\n--" and the boundary
    std::string mBuffer;
    State mState = State::Preamble;
    bool mNeedsMore = false;
    std::size_t mParts = 0;
};

/// The boundary of `multipart/form-data; boundary=…`; empty for anything else.
std::string multipartBoundary(std::string_view contentType);

/// A part's header lines, without the empty line. False if they are not those of a form's part.
bool parsePartHead(std::string_view lines, PartHead& head);

} // namespace Wt::Impl
