#include "server/Multipart.h"

#include "core/Limits.h"
#include "server/Url.h"

#include <algorithm>

namespace Wt::Impl {

namespace {

constexpr std::size_t kLongestBoundary = 70; // RFC 2046 5.1.1

std::string lowered(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
    return lower;
}

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
    return text;
}

// Takes "name=value" or "name=\"value\"" off the front. Inside quotes only \" is an escape: file names of old
// browsers hold plain backslashes.
bool takeParameter(std::string_view& rest, std::string& name, std::string& value) {
    rest = trimmed(rest);
    if (rest.empty() || rest.front() != ';') return false;
    rest = trimmed(rest.substr(1));
    const std::size_t equals = rest.find('=');
    if (equals == rest.npos) return false;
    name = lowered(trimmed(rest.substr(0, equals)));
    rest = trimmed(rest.substr(equals + 1));
    value.clear();
    if (rest.empty() || rest.front() != '"') {
        value = trimmed(rest.substr(0, rest.find(';')));
        rest.remove_prefix(std::min(rest.find(';'), rest.size()));
        return true;
    }
    for (std::size_t i = 1; i < rest.size(); ++i) {
        if (rest[i] == '"') {
            rest.remove_prefix(i + 1);
            return true;
        }
        if (rest[i] == '\\' && i + 1 < rest.size() && rest[i + 1] == '"') ++i;
        value += rest[i];
    }
    return false; // the quote never ends
}

bool isCleanText(std::string_view text) {
    return isUtf8(text) && std::none_of(text.begin(), text.end(), [](char c) {
               return static_cast<unsigned char>(c) < 0x20 || c == 0x7f;
           });
}

} // namespace

std::string multipartBoundary(std::string_view contentType) {
    constexpr std::string_view kType = "multipart/form-data";
    if (lowered(trimmed(contentType.substr(0, contentType.find(';')))) != kType) return {};
    std::string_view rest = contentType.substr(std::min(contentType.find(';'), contentType.size()));
    std::string name;
    std::string value;
    while (takeParameter(rest, name, value))
        if (name == "boundary")
            return value.size() <= kLongestBoundary && isCleanText(value) ? value : std::string();
    return {};
}

bool parsePartHead(std::string_view lines, PartHead& head) {
    head = PartHead();
    bool named = false;
    while (!lines.empty()) {
        const std::string_view line = lines.substr(0, lines.find("\r\n"));
        lines.remove_prefix(std::min(line.size() + 2, lines.size()));
        const std::size_t colon = line.find(':');
        if (colon == line.npos) return false;
        const std::string name = lowered(trimmed(line.substr(0, colon)));
        std::string_view value = trimmed(line.substr(colon + 1));
        if (name == "content-type") head.mimeType = value;
        if (name != "content-disposition") continue;
        const std::size_t end = std::min(value.find(';'), value.size());
        if (lowered(trimmed(value.substr(0, end))) != "form-data") return false;
        value.remove_prefix(end);
        std::string key;
        std::string text;
        while (takeParameter(value, key, text)) {
            if (key == "name") head.name = text, named = true;
            if (key == "filename") head.fileName = text, head.isFile = true;
        }
        if (!trimmed(value).empty()) return false;
    }
    return named && isCleanText(head.name) && isCleanText(head.fileName) && isCleanText(head.mimeType);
}

MultipartParser::MultipartParser(std::string_view contentType, PartSink& sink) : mSink(sink) {
    const std::string boundary = multipartBoundary(contentType);
    if (boundary.empty()) mState = State::Broken;
    mDelimiter = "\r\n--" + boundary;
    mBuffer = "\r\n"; // so that a boundary at the very beginning is one
}

int MultipartParser::feed(std::string_view bytes) {
    if (mState == State::Broken) return 400;
    if (mState == State::End) return 0; // the epilogue
    mBuffer.append(bytes);
    mNeedsMore = false;
    while (!mNeedsMore && mState != State::End) {
        int status = 0;
        switch (mState) {
        case State::Preamble:
        case State::Body:
            status = takeData();
            break;
        case State::AfterBoundary:
            status = takeBoundaryEnd();
            break;
        case State::Head:
            status = takeHead();
            break;
        case State::End:
        case State::Broken:
            break;
        }
        if (status != 0) return fail(status);
    }
    return 0;
}

int MultipartParser::takeData() {
    const std::size_t at = mBuffer.find(mDelimiter);
    const bool found = at != mBuffer.npos;
    const std::size_t safe = found ? at : mBuffer.size() - std::min(mBuffer.size(), mDelimiter.size() - 1);
    if (mState == State::Body && safe > 0)
        if (const int status = mSink.partData(std::string_view(mBuffer).substr(0, safe)); status != 0)
            return status;
    mNeedsMore = !found;
    mBuffer.erase(0, found ? at + mDelimiter.size() : safe);
    if (!found) return 0;
    const int status = mState == State::Body ? mSink.endPart() : 0;
    mState = State::AfterBoundary;
    return status;
}

int MultipartParser::takeBoundaryEnd() {
    mNeedsMore = mBuffer.size() < 2;
    if (mNeedsMore) return 0;
    const bool last = mBuffer.compare(0, 2, "--") == 0;
    if (!last && mBuffer.compare(0, 2, "\r\n") != 0) return 400;
    mState = last ? State::End : State::Head;
    if (last)
        mBuffer.clear();
    else
        mBuffer.erase(0, 2);
    return 0;
}

int MultipartParser::takeHead() {
    constexpr std::string_view kEnd = "\r\n\r\n";
    const std::size_t end = mBuffer.find(kEnd);
    // All of the end but its last byte may be there already.
    const std::size_t least =
        end == mBuffer.npos ? mBuffer.size() - std::min(mBuffer.size(), kEnd.size() - 1) : end;
    if (least > kMultipartHeadBytes) return 400;
    mNeedsMore = end == mBuffer.npos;
    if (mNeedsMore) return 0;
    PartHead head;
    if (++mParts > kFormFields || !parsePartHead(std::string_view(mBuffer).substr(0, end), head)) return 400;
    mBuffer.erase(0, end + kEnd.size());
    mState = State::Body;
    return mSink.beginPart(head);
}

int MultipartParser::fail(int status) {
    mState = State::Broken;
    mBuffer.clear();
    return status;
}

} // namespace Wt::Impl
