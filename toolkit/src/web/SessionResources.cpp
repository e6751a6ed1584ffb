// The resources of a session: their URLs and the requests for them.
#include "web/ResourceAnswer.h"
#include "web/WebSession.h"

#include <Wt/WApplication.h>
#include <Wt/WResource.h>

#include <openssl/rand.h>

#include <algorithm>
#include <stdexcept>

namespace Wt::Impl {

namespace {

/// Answers of one session that may be under way at once.
constexpr std::size_t kMaxAnswers = 32;

/// 128 random bits in hexadecimal.
std::string randomKey() {
    unsigned char bytes[16];
    if (RAND_bytes(bytes, sizeof bytes) != 1) throw std::runtime_error("no random numbers");
    static constexpr char kHex[] = "0123456789abcdef";
    std::string key;
    for (const unsigned char byte : bytes) {
        key += kHex[byte >> 4];
        key += kHex[byte & 0xF];
    }
    return key;
}

std::string pathName(const std::string& fileName) {
    std::string out;
    for (const char c : fileName)
        out +=
            (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '.' || c == '-'
                ? c
                : '_';
    return out.empty() ? "resource" : out;
}

void refuse(ResourceExchange& exchange, int status) {
    exchange.start(status, {{"Content-Type", "text/plain"}}, 0);
    exchange.finish();
}

} // namespace

std::string WebSession::resourceUrl(WResource& resource) {
    for (auto it = mResources.begin(); it != mResources.end(); ++it)
        if (it->second == &resource) {
            mResources.erase(it);
            break;
        }
    const std::string key = randomKey();
    mResources.emplace(key, &resource);
    return mResourceBase + "/" + key + "/" + pathName(resource.suggestedFileName().toUTF8());
}

void WebSession::revokeResource(WResource& resource) {
    std::erase_if(mResources, [&](const auto& entry) { return entry.second == &resource; });
    for (const auto& answer : mAnswers)
        if (answer->resource() == &resource) answer->resourceGone();
}

void WebSession::haveMoreData(WResource& resource) {
    const auto answers = mAnswers;
    for (const auto& answer : answers)
        if (answer->resource() == &resource) answer->haveMoreData();
}

void WebSession::serveResource(const std::shared_ptr<ResourceExchange>& exchange) {
    std::erase_if(mAnswers, [](const auto& answer) { return answer->finished(); });
    const auto found = mResources.find(exchange->resourceId);
    if (found == mResources.end()) return refuse(*exchange, 404);
    if (mAnswers.size() >= kMaxAnswers) return refuse(*exchange, 503);
    if (!mLink) {
        mLink = std::make_shared<SessionLink>();
        mLink->mailbox = &mMailbox;
    }
    mAnswers.push_back(std::make_shared<ResourceAnswer>(exchange, *found->second, mLink));
    notify(ResourceEvent, [answer = mAnswers.back()] { answer->proceed(); });
}

void WebSession::closeLink() {
    if (!mLink) return;
    const std::lock_guard lock(mLink->mutex);
    mLink->mailbox = nullptr;
}

} // namespace Wt::Impl
