#include "session/SessionRegistry.h"

#include "core/Limits.h"
#include "core/Log.h"

#include <system_error>

namespace Wt::Impl {

namespace {

// How long the page of a session may be silent, by what is known of it.
std::chrono::seconds patienceWith(const Session& session, const Channel::Liveness& page) {
    if (session.hasEnded()) return kEndedLinger;
    if (page.left) return kLeftLimit;
    return page.everAttached ? kSilentLimit : kUnclaimedLimit;
}

template <typename Counts, typename Key>
void dropFrom(Counts& counts, const Key& key) {
    const auto count = counts.find(key);
    if (--count->second == 0) counts.erase(count);
}

} // namespace

SessionRegistry::Started SessionRegistry::start(StartRequest start, const std::string& prefix,
                                                const std::string& resourceRoot, std::string_view cookie) {
    Started result;
    result.token = randomText(32);
    start.sessionId = prefix + randomText(12);
    const std::string address = start.clientAddress;
    const std::string name = start.sessionId;

    const std::lock_guard lock(mMutex); // held until the thread runs: its end has to find it registered
    reap();
    if (mRunning >= mLimits.sessions) {
        result.status = 503;
        return result;
    }
    if (const auto count = mPerAddress.find(address);
        count != mPerAddress.end() && count->second >= mLimits.perAddress) {
        result.status = 429;
        return result;
    }
    const bool known = looksLikeSecret(cookie) && mPerCookie.count(digestOf(cookie)) != 0;
    result.cookie = known ? std::string(cookie) : randomText(32);

    const Digest token = digestOf(result.token);
    auto session = std::make_shared<Session>(mMakeHost, std::move(start), resourceRoot + name, token,
                                             digestOf(result.cookie));
    try {
        session->run([self = shared_from_this()](const auto& which) { self->ended(which); });
    } catch (const std::system_error& error) {
        log(LogLevel::Error, "server", error.what());
        result.status = 503;
        return result;
    }
    mByToken.emplace(token, session);
    mByName.emplace(name, session);
    ++mPerAddress[address];
    ++mPerCookie[session->cookie()];
    ++mRunning;
    result.session = std::move(session);
    return result;
}

std::shared_ptr<Session> SessionRegistry::find(std::string_view token, std::string_view cookie) const {
    if (!looksLikeSecret(token) || !looksLikeSecret(cookie)) return nullptr;
    const Digest key = digestOf(token);
    const Digest browser = digestOf(cookie);
    const std::lock_guard lock(mMutex);
    const auto found = mByToken.find(key);
    if (found == mByToken.end() || !sameDigest(found->second->cookie(), browser)) return nullptr;
    return found->second;
}

std::shared_ptr<Session> SessionRegistry::findByName(std::string_view name, std::string_view cookie) const {
    auto session = findByName(name);
    return session && sameDigest(session->cookie(), digestOf(cookie)) ? session : nullptr;
}

std::shared_ptr<Session> SessionRegistry::findByName(std::string_view name) const {
    const std::lock_guard lock(mMutex);
    const auto found = mByName.find(std::string(name));
    return found == mByName.end() ? nullptr : found->second.lock();
}

std::size_t SessionRegistry::expire(Clock::time_point now) {
    const std::lock_guard lock(mMutex);
    reap();
    for (auto entry = mByToken.begin(); entry != mByToken.end();) {
        const std::shared_ptr<Session> session = entry->second;
        const Channel::Liveness page = session->channel().liveness();
        const bool isSilent = !page.attached && now - page.lastHeard > patienceWith(*session, page);
        if (session->hasEnded() && (page.delivered || isSilent)) {
            mByName.erase(session->name());
            entry = mByToken.erase(entry);
            continue;
        }
        if (isSilent && !session->hasEnded()) session->end(EndReason::Expired);
        ++entry;
    }
    return mByToken.size();
}

void SessionRegistry::forEach(const std::function<void(Session&)>& function) const {
    std::vector<std::shared_ptr<Session>> all;
    {
        const std::lock_guard lock(mMutex);
        for (const auto& [token, session] : mByToken) all.push_back(session);
    }
    for (const auto& session : all) function(*session);
}

std::size_t SessionRegistry::size() const {
    const std::lock_guard lock(mMutex);
    return mRunning;
}

bool SessionRegistry::endAll(EndReason reason, std::chrono::steady_clock::duration limit) {
    forEach([reason](Session& session) { session.end(reason); });
    std::unique_lock lock(mMutex);
    const bool allEnded = mOneEnded.wait_for(lock, limit, [this] { return mRunning == 0; });
    reap();
    return allEnded;
}

void SessionRegistry::ended(const std::shared_ptr<Session>& session) {
    const std::lock_guard lock(mMutex);
    reap(); // the threads before this one; this one is joined by the next
    mToJoin.push_back(session);
    dropFrom(mPerAddress, session->clientAddress());
    dropFrom(mPerCookie, session->cookie());
    --mRunning;
    mOneEnded.notify_all();
}

void SessionRegistry::reap() {
    for (const auto& session : mToJoin) session->join();
    mToJoin.clear();
}

} // namespace Wt::Impl
