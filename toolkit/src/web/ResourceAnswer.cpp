#include "web/ResourceAnswer.h"

#include <Wt/WResource.h>

#include <cstdio>
#include <sstream>

namespace Wt::Impl {

namespace {

Http::UploadedFileMap filesOf(const ResourceExchange& exchange) {
    Http::UploadedFileMap files;
    for (const SpooledFile& file : exchange.files)
        files.emplace(file.field, Http::UploadedFile(file.spoolPath, file.clientName, file.mimeType));
    return files;
}

bool plainNameCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
           c == '.' || c == '_';
}

} // namespace

void SessionLink::post(std::function<void()> call) {
    const std::lock_guard lock(mutex);
    if (!mailbox) return;
    SessionEvent event;
    event.kind = SessionEvent::Kind::Call;
    event.call = std::move(call);
    mailbox->post(std::move(event));
}

std::string contentDisposition(bool inlined, const std::string& fileName) {
    std::string out = inlined ? "inline" : "attachment";
    if (fileName.empty()) return out;
    std::string plain, encoded;
    for (const char c : fileName) {
        if (plainNameCharacter(c)) {
            plain += c;
            encoded += c;
            continue;
        }
        plain += '_';
        char hex[4];
        std::snprintf(hex, sizeof hex, "%%%02X", static_cast<unsigned char>(c));
        encoded += hex;
    }
    out += "; filename=\"" + plain + '"';
    if (plain != fileName) out += "; filename*=UTF-8''" + encoded;
    return out;
}

ResourceAnswer::ResourceAnswer(std::shared_ptr<ResourceExchange> exchange, WResource& resource,
                               std::shared_ptr<SessionLink> link)
    : mExchange(std::move(exchange)), mResource(&resource), mLink(std::move(link)),
      mRequest(mExchange->parameters, filesOf(*mExchange)) {
    mRequest.mHeaders = mExchange->headers;
    mRequest.mMethod = mExchange->method;
    mRequest.mTooLarge = static_cast<::int64_t>(mExchange->tooLarge);
}

void ResourceAnswer::proceed() {
    mInFlight = false;
    if (mFinished) return;
    if (!mResource) {
        mFinished = true;
        return;
    }
    std::ostringstream body;
    Http::Response response(body);
    response.mContinuation = mStarted ? &mContinuation : nullptr;
    response.mNext = &mContinuation;
    mRequest.mContinuation = mStarted ? &mContinuation : nullptr;
    mContinuation.mWaiting = false;
    mResource->handleRequest(mRequest, response);
    for (SpooledFile& file : mExchange->files)
        for (const auto& [field, told] : mRequest.mFiles)
            if (told.isStolen() && told.spoolFileName() == file.spoolPath) file.stolen = true;
    std::string piece = std::move(body).str();
    if (!mStarted) start(response, response.mContinues ? -1 : static_cast<std::int64_t>(piece.size()));
    mStarted = true;
    if (!response.mContinues) {
        mFinished = true;
        if (!piece.empty()) mExchange->write(std::move(piece), [](bool) {});
        mExchange->finish();
        return;
    }
    if (piece.empty()) {
        if (mContinuation.isWaitingForMoreData()) return;
        piece.clear();
    }
    mInFlight = true;
    // The session owns the answer; the exchange, which keeps this call, must not.
    mExchange->write(std::move(piece), [weak = weak_from_this(), link = mLink](bool taken) {
        link->post([weak, taken] {
            if (const auto answer = weak.lock()) answer->sent(taken);
        });
    });
}

void ResourceAnswer::sent(bool taken) {
    mInFlight = false;
    if (mFinished) return;
    if (!taken) {
        mFinished = true;
        if (mResource) mResource->handleAbort(mRequest);
        return;
    }
    if (!mContinuation.isWaitingForMoreData()) proceed();
}

void ResourceAnswer::haveMoreData() {
    mContinuation.haveMoreData();
    if (mStarted && !mFinished && !mInFlight) proceed();
}

void ResourceAnswer::start(const Http::Response& response, std::int64_t wholeSize) {
    auto headers = response.mHeaders;
    headers.emplace_back("Content-Type",
                         response.mMimeType.empty() ? "application/octet-stream" : response.mMimeType);
    const std::string name = mResource->suggestedFileName().toUTF8();
    if (mResource->dispositionType() != WResource::NoDisposition || !name.empty())
        headers.emplace_back("Content-Disposition",
                             contentDisposition(mResource->dispositionType() == WResource::Inline, name));
    headers.emplace_back("Cache-Control", "no-store");
    mExchange->start(response.mStatus, headers, response.mLength >= 0 ? response.mLength : wholeSize);
}

} // namespace Wt::Impl
