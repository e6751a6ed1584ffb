#include "session/SessionRegistry.h"

#include "core/Limits.h"
#include "core/Log.h"

#include <system_error>
#include <tuple>

#include <malloc.h>

namespace Wt::Impl {

namespace {

/// More sessions without a user than this, and the address is the first that has to make room.
constexpr std::size_t kManyOfOneAddress = 32;
/// The allocator keeps what a burst of sessions used; after so many ends it is asked to give it back.
constexpr std::size_t kTrimAfter = 20;
/// Requests that were under way when a browser got a new cookie may still come with the old one.
constexpr std::chrono::seconds kLateCookie{10};

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

template <typename Counts, typename Key>
std::size_t countIn(const Counts& counts, const Key& key) {
    const auto count = counts.find(key);
    return count == counts.end() ? 0 : count->second;
}

} // namespace

SessionRegistry::Started SessionRegistry::start(StartRequest start, const std::string& prefix,
                                                const std::string& resourceRoot, std::string_view cookie) {
    Started result;
    result.token = randomText(32);
    result.cookie = randomText(32);
    start.sessionId = prefix + randomText(12);
    const std::string name = start.sessionId;
    Victims victims;
    {
        const std::lock_guard lock(mMutex);
        reap();
        if (mRecognised >= mLimits.recognised) {
            result.status = 503;
            return result;
        }
        if (!makeRoom(start.clientNetwork, victims)) {
            result.status = 429;
            return result;
        }
        if (looksLikeSecret(cookie) && isKnown(digestOf(cookie))) result.cookie = cookie;
        result.session = std::make_shared<Session>(mMakeHost, std::move(start), resourceRoot + name);
        Session::Standing& standing = result.session->standing;
        standing.token = digestOf(result.token);
        standing.cookie = digestOf(result.cookie);
        mByToken.emplace(standing.token, result.session);
        ++mPerAddress[result.session->clientNetwork()];
        ++mAnonymousPerAddress[result.session->clientNetwork()];
        ++mAnonymous;
    }
    for (const SessionPtr& victim : victims) victim->end(EndReason::Displaced);
    return result;
}

bool SessionRegistry::makeRoom(const std::string& network, Victims& victims) {
    if (countIn(mPerAddress, network) >= mLimits.perAddress) {
        const SessionPtr own =
            oldestIdle([&](const Session& session) { return session.clientNetwork() == network; });
        if (!own) return false;
        displace(own, victims);
    }
    if (mAnonymous < mLimits.anonymous) return true;
    // First those of whoever holds many: the page that an operator has open must not go for a flood of others.
    SessionPtr oldest = oldestIdle([this](const Session& session) {
        return countIn(mAnonymousPerAddress, session.clientNetwork()) > kManyOfOneAddress;
    });
    if (!oldest) oldest = oldestIdle([](const Session&) { return true; });
    if (oldest) displace(oldest, victims);
    return oldest != nullptr;
}

SessionRegistry::SessionPtr
SessionRegistry::oldestIdle(const std::function<bool(const Session&)>& among) const {
    // Whose page never came, then those without a connection, then those whose user did nothing for longest.
    std::tuple<int, Clock::time_point> least(3, Clock::time_point::max());
    SessionPtr found;
    for (const auto& [token, session] : mByToken) {
        if (!session->standing.counted || session->standing.recognised || !among(*session)) continue;
        const Channel::Liveness page = session->channel().liveness();
        const int rank = page.attached ? 2 : page.everAttached ? 1 : 0;
        const std::tuple candidate(rank, page.attached ? page.lastEvent : page.lastHeard);
        if (candidate >= least) continue;
        least = candidate;
        found = session;
    }
    return found;
}

void SessionRegistry::displace(const SessionPtr& session, Victims& victims) {
    uncount(*session);
    if (session->standing.started)
        victims.push_back(session);
    else
        forget(session);
}

void SessionRegistry::uncount(Session& session) {
    Session::Standing& standing = session.standing;
    if (!standing.counted) return;
    standing.counted = false;
    dropFrom(mPerAddress, session.clientNetwork());
    if (standing.recognised) {
        --mRecognised;
    } else {
        dropFrom(mAnonymousPerAddress, session.clientNetwork());
        --mAnonymous;
    }
}

void SessionRegistry::forget(const SessionPtr& session) {
    const SessionPtr kept = session; // the reference may be the map's own
    mByName.erase(kept->name());
    mByToken.erase(kept->standing.token);
    if (kept->standing.newToken) mByNewToken.erase(*kept->standing.newToken);
}

std::shared_ptr<Session> SessionRegistry::claim(std::string_view token, std::string_view cookie) {
    const std::lock_guard lock(mMutex); // held until the thread runs: its end has to find it registered
    SessionPtr session = lookUp(token, cookie);
    if (!session || session->standing.started) return session;
    reap();
    try {
        session->run([self = shared_from_this()](const auto& which) { self->ended(which); },
                     [self = weak_from_this(), which = std::weak_ptr(session)] {
                         const auto registry = self.lock();
                         const auto one = which.lock();
                         if (registry && one) registry->recognised(one);
                     });
    } catch (const std::system_error& error) {
        log(LogLevel::Error, "server", error.what());
        return nullptr;
    }
    session->standing.started = true;
    ++mThreads;
    mByName.emplace(session->name(), session);
    return session;
}

std::shared_ptr<Session> SessionRegistry::find(std::string_view token, std::string_view cookie) {
    const std::lock_guard lock(mMutex);
    return lookUp(token, cookie);
}

SessionRegistry::SessionPtr SessionRegistry::lookUp(std::string_view token, std::string_view cookie) {
    if (!looksLikeSecret(token) || !looksLikeSecret(cookie)) return nullptr;
    const Digest key = digestOf(token);
    const Digest browser = digestOf(cookie);
    if (const auto renewed = mByNewToken.find(key); renewed != mByNewToken.end()) {
        const SessionPtr session = renewed->second;
        if (!opens(browser, *session)) return nullptr;
        confirm(*session);
        return session;
    }
    const auto found = mByToken.find(key);
    if (found == mByToken.end() || !opens(browser, *found->second)) return nullptr;
    return found->second;
}

bool SessionRegistry::isCookieOf(const Session& session, const Digest& cookie) const {
    if (sameDigest(session.standing.cookie, cookie)) return true;
    const auto next = mNewCookies.find(session.standing.cookie);
    return next != mNewCookies.end() && sameDigest(digestOf(next->second), cookie);
}

bool SessionRegistry::opens(const Digest& cookie, const Session& session) const {
    const Session::Standing& standing = session.standing;
    if (isCookieOf(session, cookie)) return true;
    return standing.earlierUntil > Clock::now() && sameDigest(standing.earlierCookie, cookie);
}

bool SessionRegistry::isKnown(const Digest& cookie) const {
    for (const auto& [token, session] : mByToken)
        if (session->standing.counted && isCookieOf(*session, cookie)) return true;
    return false;
}

bool SessionRegistry::isOfUser(std::string_view cookie) const {
    if (!looksLikeSecret(cookie)) return false;
    const Digest browser = digestOf(cookie);
    const std::lock_guard lock(mMutex);
    for (const auto& [token, session] : mByToken)
        if (session->standing.recognised && isCookieOf(*session, browser)) return true;
    return false;
}

std::shared_ptr<Session> SessionRegistry::findByName(std::string_view name, std::string_view cookie) const {
    const Digest browser = digestOf(cookie);
    const std::lock_guard lock(mMutex);
    const auto found = mByName.find(std::string(name));
    auto session = found == mByName.end() ? nullptr : found->second.lock();
    return session && opens(browser, *session) ? session : nullptr;
}

std::shared_ptr<Session> SessionRegistry::findByName(std::string_view name) const {
    const std::lock_guard lock(mMutex);
    const auto found = mByName.find(std::string(name));
    return found == mByName.end() ? nullptr : found->second.lock();
}

void SessionRegistry::recognised(const SessionPtr& session) {
    const std::lock_guard lock(mMutex);
    Session::Standing& standing = session->standing;
    standing.renewalDue = true;
    session->hasUser = true;
    if (standing.recognised || !standing.counted) return;
    standing.recognised = true;
    dropFrom(mAnonymousPerAddress, session->clientNetwork());
    --mAnonymous;
    ++mRecognised;
}

SessionRegistry::Renewed SessionRegistry::renew(std::string_view token, std::string_view cookie) {
    Renewed result;
    const std::lock_guard lock(mMutex);
    const bool shown = looksLikeSecret(token) && mByNewToken.count(digestOf(token)) != 0;
    const SessionPtr session = lookUp(token, cookie);
    if (!session) return result;
    if (shown) {
        result.status = 204;
        return result;
    }
    Session::Standing& standing = session->standing;
    if (!standing.renewalDue) return result;
    // Pages of one browser that renew at the same time get the same cookie: it keeps one of them alone.
    std::string& next = mNewCookies[standing.cookie];
    if (next.empty()) next = randomText(32);
    if (standing.newToken) mByNewToken.erase(*standing.newToken); // the answer with it was lost
    result.token = randomText(32);
    result.cookie = next;
    result.status = 200;
    standing.newToken = digestOf(result.token);
    mByNewToken.emplace(*standing.newToken, session);
    return result;
}

void SessionRegistry::confirm(Session& session) {
    Session::Standing& standing = session.standing;
    const auto found = mByToken.find(standing.token);
    const SessionPtr self = found->second;
    mByToken.erase(found);
    mByNewToken.erase(*standing.newToken);
    standing.token = *standing.newToken;
    standing.newToken.reset();
    standing.renewalDue = false;
    mByToken.emplace(standing.token, self);

    const Digest former = standing.cookie;
    const auto next = mNewCookies.find(former);
    if (next == mNewCookies.end()) return; // another page of the browser has shown it already
    const Digest cookie = digestOf(next->second);
    mNewCookies.erase(next);
    for (const auto& [token, other] : mByToken) {
        if (!sameDigest(other->standing.cookie, former)) continue;
        other->standing.cookie = cookie;
        if (other == self) continue;
        other->standing.earlierCookie = former;
        other->standing.earlierUntil = Clock::now() + kLateCookie;
    }
}

void SessionRegistry::end(const std::shared_ptr<Session>& session, EndReason reason) {
    {
        const std::lock_guard lock(mMutex);
        if (!session->standing.started) {
            uncount(*session);
            forget(session);
        }
    }
    session->end(reason);
}

std::size_t SessionRegistry::expire(Clock::time_point now) {
    Victims silent;
    std::vector<SessionPtr> gone; // destroyed outside of the lock
    std::size_t left = 0;
    bool trims = false;
    {
        const std::lock_guard lock(mMutex);
        reap();
        std::vector<SessionPtr> all;
        for (const auto& [token, session] : mByToken) all.push_back(session);
        for (const SessionPtr& session : all) {
            const Channel::Liveness page = session->channel().liveness();
            const bool isSilent = !page.attached && now - page.lastHeard > patienceWith(*session, page);
            if (session->hasEnded() ? page.delivered || isSilent : isSilent && !session->standing.started) {
                uncount(*session);
                forget(session);
                gone.push_back(session);
            } else if (isSilent && !session->hasEnded()) {
                silent.push_back(session);
            }
        }
        mEndedSinceTrim += gone.size();
        trims = mEndedSinceTrim >= kTrimAfter;
        if (trims) mEndedSinceTrim = 0;
        std::erase_if(mNewCookies, [this](const auto& pair) { return !isKnown(pair.first); });
        left = mByToken.size();
    }
    for (const SessionPtr& session : silent) session->end(EndReason::Expired);
    gone.clear();
    if (trims) ::malloc_trim(0);
    return left;
}

void SessionRegistry::forEach(const std::function<void(Session&)>& function) const {
    std::vector<SessionPtr> all;
    {
        const std::lock_guard lock(mMutex);
        for (const auto& [token, session] : mByToken)
            if (session->standing.started) all.push_back(session);
    }
    for (const auto& session : all) function(*session);
}

std::size_t SessionRegistry::size() const {
    const std::lock_guard lock(mMutex);
    return mRecognised + mAnonymous;
}

bool SessionRegistry::endAll(EndReason reason, std::chrono::steady_clock::duration limit) {
    {
        const std::lock_guard lock(mMutex);
        std::vector<SessionPtr> waiting;
        for (const auto& [token, session] : mByToken)
            if (!session->standing.started) waiting.push_back(session);
        for (const SessionPtr& session : waiting) {
            uncount(*session);
            forget(session);
        }
    }
    forEach([reason](Session& session) { session.end(reason); });
    std::unique_lock lock(mMutex);
    const bool allEnded = mOneEnded.wait_for(lock, limit, [this] { return mThreads == 0; });
    reap();
    return allEnded;
}

void SessionRegistry::ended(const SessionPtr& session) {
    const std::lock_guard lock(mMutex);
    reap(); // the threads before this one; this one is joined by the next
    mToJoin.push_back(session);
    uncount(*session);
    --mThreads;
    mOneEnded.notify_all();
}

void SessionRegistry::reap() {
    for (const auto& session : mToJoin) session->join();
    mToJoin.clear();
}

} // namespace Wt::Impl
