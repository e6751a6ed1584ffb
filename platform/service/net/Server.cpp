#include "platform/service/net/Server.h"

#include "platform/service/record/RecordJson.h"

#include <algorithm>
#include <cerrno>
#include <grp.h>
#include <pwd.h>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace zeqd {

namespace {

enum Tag : std::uint64_t { kListenTag = 1, kStopTag, kExecutorTag };
constexpr int kMaxEvents = 64;

std::int64_t milliseconds(std::chrono::seconds span) {
    return std::chrono::milliseconds(span).count();
}

bool inGroup(uid_t uid, gid_t gid) {
    const passwd* user = getpwuid(uid);
    if (!user) return false;
    gid_t groups[256];
    int count = 256;
    getgrouplist(user->pw_name, user->pw_gid, groups, &count);
    return std::find(groups, groups + std::clamp(count, 0, 256), gid) != groups + std::clamp(count, 0, 256);
}

/// The service's own user, the superuser and members of the service's group.
bool mayConnect(int fd) {
    ucred peer{};
    socklen_t length = sizeof peer;
    if (getsockopt(fd, SOL_SOCKET, SO_PEERCRED, &peer, &length) != 0) return false;
    return peer.uid == 0 || peer.uid == geteuid() || peer.gid == getegid() || inGroup(peer.uid, getegid());
}

} // namespace

Server::Server(Engine& engine, ThreadExecutor& executor, const Clock& clock, int listenFd, int stopFd,
               std::size_t maxClients, std::size_t outputBudget)
    : mEngine(engine), mExecutor(executor), mClock(clock), mListen(listenFd), mStop(stopFd),
      mEpoll(epoll_create1(EPOLL_CLOEXEC)), mMaxClients(maxClients), mOutputBudget(outputBudget) {
    if (mEpoll < 0) throw std::system_error(errno, std::generic_category(), "epoll");
    watch(mListen, EPOLLIN, EPOLL_CTL_ADD, kListenTag);
    watch(mStop, EPOLLIN, EPOLL_CTL_ADD, kStopTag);
    watch(mExecutor.fd(), EPOLLIN, EPOLL_CTL_ADD, kExecutorTag);
}

Server::~Server() {
    for (const auto& [id, client] : mClients) close(client.fd);
    close(mEpoll);
    close(mListen);
}

void Server::watch(int fd, std::uint32_t events, int operation, std::uint64_t tag) {
    epoll_event event{};
    event.events = events;
    event.data.u64 = tag;
    if (epoll_ctl(mEpoll, operation, fd, &event) != 0)
        throw std::system_error(errno, std::generic_category(), "epoll_ctl");
}

/// Milliseconds until something is due by itself, -1 = nothing is.
int Server::timeout() const {
    if (!mAhead.empty()) return 0;
    std::optional<std::int64_t> next = mEngine.nextDue();
    if (mStopBy && unsent() && (!next || mStopBy < *next)) next = mStopBy;
    if (mEarliest && (!next || mEarliest < *next)) next = mEarliest;
    if (!next) return -1;
    constexpr std::int64_t kHour = 3'600'000;
    return static_cast<int>(std::clamp<std::int64_t>(*next - mClock.monotonicMs(), 0, kHour));
}

/// There are clients that have not taken their answers yet.
bool Server::unsent() const {
    return mUnsent > 0 && (!mStopBy || mClock.monotonicMs() < mStopBy);
}

void Server::run() {
    while (!mStopping || !mEngine.idle() || unsent()) {
        epoll_event events[kMaxEvents];
        const int count = epoll_wait(mEpoll, events, kMaxEvents, timeout());
        if (count < 0 && errno != EINTR)
            throw std::system_error(errno, std::generic_category(), "epoll_wait");
        for (int i = 0; i < count; ++i) {
            const std::uint64_t tag = events[i].data.u64;
            if (tag == kStopTag) {
                mStopping = true;
                epoll_ctl(mEpoll, EPOLL_CTL_DEL, mStop, nullptr);
            } else if (tag == kExecutorTag) {
                mExecutor.drain();
            } else if (tag == kListenTag) {
                accept();
            } else if (const auto found = mClients.find(tag); found != mClients.end()) {
                // A hang-up shows in the read or the write that follows.
                const bool there = !(events[i].events & EPOLLOUT) || send(found->second);
                if (there && (events[i].events & (EPOLLIN | EPOLLHUP | EPOLLERR)))
                    readable(found->second);
                else if (there)
                    serve(found->second);
            }
        }
        serveAhead();
        dropLate();
        mEngine.runDue();
        mEngine.flush();
        mStopping = mStopping || mEngine.restartWanted();
        if (mStopping && !mStopBy) mStopBy = mClock.monotonicMs() + milliseconds(kStopDeadline);
    }
}

void Server::accept() {
    while (true) {
        const int fd = accept4(mListen, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
        if (fd < 0) return;
        if (!greet(fd)) {
            close(fd);
            continue;
        }
        const ClientId id = mNextId++;
        epoll_event event{};
        event.events = EPOLLIN;
        event.data.u64 = id;
        // The kernel may have no room for one more to watch; those that are there matter more.
        if (epoll_ctl(mEpoll, EPOLL_CTL_ADD, fd, &event) != 0) {
            close(fd);
            continue;
        }
        mClients.emplace(id, Client{.id = id, .fd = fd, .in = {}, .out = {}, .events = EPOLLIN});
    }
}

/// False when the client is turned away; at the limit it is told why.
bool Server::greet(int fd) {
    if (!mayConnect(fd)) return false;
    if (mClients.size() < mMaxClients) return true;
    std::string frame;
    appendFrame(frame, errorText(0, {{Errno::Capacity, {}}}));
    [[maybe_unused]] const ssize_t sent = ::send(fd, frame.data(), frame.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    return false;
}

void Server::readable(Client& client) {
    char buffer[kReadChunk];
    const ssize_t got = recv(client.fd, buffer, sizeof buffer, 0);
    if (got < 0 && (errno == EAGAIN || errno == EINTR)) return;
    if (got <= 0) return drop(client.id);
    client.in.append({buffer, static_cast<std::size_t>(got)});
    client.deadline = 0; // it goes on
    serve(client);
}

/// Takes the client's next request, when it has none in work and has taken its last answer. One that sends
/// ahead has its next one in the next round, so that it does not keep the others waiting.
void Server::serve(Client& client) {
    const ClientId id = client.id;
    if (!mStopping && !client.waiting && client.out.empty()) {
        const std::optional<std::string_view> frame = client.in.next();
        if (client.in.broken()) return drop(id);
        if (frame) {
            client.waiting = true;
            client.serving = true;
            client.deadline = 0;
            mEngine.request(id, *frame, [this, id](const std::string& text) { answered(id, text); });
            if (!mClients.contains(id)) return;
            client.serving = false;
            if (client.in.ready() && !std::exchange(client.ahead, true)) mAhead.push_back(id);
        }
    }
    const bool idle = !client.waiting && client.out.empty();
    if (idle && !client.in.partial()) client.deadline = 0;
    if (idle && client.in.partial() && client.deadline == 0) expect(client, kFrameDeadline);
    listenTo(client);
}

void Server::serveAhead() {
    std::vector<ClientId> ahead;
    ahead.swap(mAhead);
    for (const ClientId id : ahead)
        if (const auto found = mClients.find(id); found != mClients.end()) {
            found->second.ahead = false;
            serve(found->second);
        }
}

/// A client that sends ahead of its answers is not read until it has them, nor while whole requests of it are
/// here: its bytes stay with the kernel, and it has one turn a round.
void Server::listenTo(Client& client) {
    const bool reads = !client.waiting && client.out.empty() && !client.in.ready();
    const std::uint32_t events = (reads ? EPOLLIN : 0U) | (client.out.empty() ? 0U : EPOLLOUT);
    if (events == client.events) return;
    client.events = events;
    watch(client.fd, events, EPOLL_CTL_MOD, client.id);
}

void Server::answered(ClientId id, const std::string& text) {
    const auto found = mClients.find(id);
    if (found == mClients.end()) return;
    Client& client = found->second;
    client.waiting = false;
    if (!makeRoom(text.size() + kFrameHeader)) return drop(id);
    appendFrame(client.out, text);
    mUnsent += text.size() + kFrameHeader;
    if (send(client) && !client.serving) serve(client);
}

/// Those that hold the most, and of them the oldest, give way until so many bytes more are within the budget. False when nobody holds any.
bool Server::makeRoom(std::size_t bytes) {
    while (mUnsent + bytes > mOutputBudget) {
        const auto most =
            std::max_element(mClients.begin(), mClients.end(), [](const auto& a, const auto& b) {
                return std::pair(a.second.out.size(), b.first) < std::pair(b.second.out.size(), a.first);
            });
        if (most->second.out.empty()) return false;
        drop(most->first);
    }
    return true;
}

/// Sends what the client takes. False when the client is gone.
bool Server::send(Client& client) {
    while (client.sent < client.out.size()) {
        const ssize_t sent =
            ::send(client.fd, client.out.data() + client.sent, client.out.size() - client.sent, MSG_NOSIGNAL);
        if (sent < 0 && errno == EINTR) continue;
        if (sent < 0 && errno != EAGAIN) {
            drop(client.id);
            return false;
        }
        if (sent < 0) {
            const auto whole = kWriteDeadline + std::chrono::seconds(client.out.size() / kLeastRate);
            if (!client.taken) client.taken = mClock.monotonicMs() + milliseconds(whole);
            if (!client.deadline) expect(client, kWriteDeadline);
            client.deadline = std::min(client.deadline, client.taken);
            mEarliest = std::min(mEarliest, client.deadline);
            return true;
        }
        client.sent += static_cast<std::size_t>(sent);
        client.deadline = 0;
    }
    mUnsent -= client.out.size();
    client.taken = 0;
    client.out.clear();
    if (client.out.capacity() > kReadChunk) client.out.shrink_to_fit();
    client.sent = 0;
    client.deadline = 0;
    return true;
}

void Server::drop(ClientId id) {
    const auto found = mClients.find(id);
    if (found == mClients.end()) return;
    close(found->second.fd);
    mUnsent -= found->second.out.size();
    mClients.erase(found);
    mEngine.clientGone(id);
}

/// The client is dropped unless it does what it is to do in time.
void Server::expect(Client& client, std::chrono::seconds span) {
    client.deadline = mClock.monotonicMs() + milliseconds(span);
    if (!mEarliest || client.deadline < mEarliest) mEarliest = client.deadline;
}

void Server::dropLate() {
    const std::int64_t now = mEarliest ? mClock.monotonicMs() : 0;
    if (mEarliest > now || !mEarliest) return;
    mEarliest = 0;
    std::vector<ClientId> late;
    for (const auto& [id, client] : mClients) {
        if (!client.deadline) continue;
        if (client.deadline <= now)
            late.push_back(id);
        else if (!mEarliest || client.deadline < mEarliest)
            mEarliest = client.deadline;
    }
    for (const ClientId id : late) drop(id);
}

} // namespace zeqd
