// The service without its sockets: requests in, answers out, time passing.
//
// Reads are answered at once from the records that are on disk.
// Writes queue; while one batch of them is being written to disk, the next gathers.
// A write is answered when it is kept, and other clients see it from then on.
#pragma once

#include "platform/service/domain/Context.h"
#include "platform/service/engine/Schedule.h"
#include "platform/service/engine/Seams.h"
#include "platform/service/request/ZeqRequest.h"
#include "platform/service/secret/PasswordHash.h"
#include "platform/service/store/Disk.h"
#include "platform/service/store/Store.h"

#include <deque>
#include <map>
#include <memory>
#include <set>

namespace zeqd {

class Simulation;

struct EngineOptions {
    std::string uploadDir = "/tmp"; ///< firmware files of this machine come from there and nowhere else
    bool localServers = false;      ///< firmware servers may be on this machine or its own link
    bool simControl = false;        ///< clients may steer the simulation
    bool living = false;            ///< operators come, connect and leave by themselves
};

struct EngineParts {
    Clock& clock;
    Disk& disk;
    Executor& executor;
    /// Lines for the event log.
    std::function<void(const std::string&)> log;
    std::string settingsDir; ///< where settings files are made
    std::string database =
        {}; ///< path of the database; what was set aside from it goes with a factory restore
    /// An event for the syslog server (an IP address, empty = none), from the Switch of that EID. May be empty.
    std::function<void(const std::string& server, const EventLine& event, const std::string& eid)> syslog =
        {};
    /// Of a password, off the event loop; empty when memory runs out.
    std::function<std::string(std::string_view)> hash = hashPassword;
    EngineOptions options = {};
};

class Engine {
public:
    using Reply = std::function<void(std::string)>;

    Engine(EngineParts parts, Store store);
    ~Engine();
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    /// Answers through `reply`, at once or later. A client has one request at a time.
    void request(ClientId client, std::string_view text, Reply reply);
    void clientGone(ClientId client);

    /// Starts keeping what has been written since; to be called when a round of requests has been taken in,
    /// so that they share one sync of the disk.
    void flush();
    /// Runs what the simulation has due.
    void runDue();
    /// Begins the simulation, and settles what a stop in the middle left behind: reboots go on, updates that
    /// were lost fail.
    void start(std::int64_t timeFactor);

    const Store& store() const { return mStore; }
    /// Monotonic milliseconds at which runDue has something to do; nothing while nothing happens.
    std::optional<std::int64_t> nextDue() const;
    /// The Switch has rebooted: the process is to end and to be started again.
    bool restartWanted() const { return mRestart; }
    /// No write waits to be kept.
    bool idle() const { return mWrites.empty() && !mBusy; }

private:
    friend class Simulation;

    /// Work in a transaction of its own. Answers whether it is to be kept.
    struct Write {
        std::function<bool(Transaction&)> run;
        std::function<void(bool kept)> done;
        bool session = false; ///< a login or logout: on a full disk it is kept in memory
        bool alone = false;   ///< its batch has failed: is tried by itself
    };
    /// An answer that is there at once, or nothing when the request goes on.
    std::optional<std::string> answerNow(ClientId client, std::string_view text, ZeqRequest& request) const;
    /// The answer to a request that this program has a fault with.
    std::string fault(const ZeqRequest& request, const std::exception& error) const;
    void submit(Write write);
    /// What the service does of itself: tried again while it cannot be kept.
    void submitStep(std::function<void(Transaction&)> run, bool session = false);
    void submitRequest(const std::shared_ptr<ZeqRequest>& request, ClientId client, Prepared prepared,
                       Reply reply);
    /// In the transaction; false when it is refused.
    bool runRequest(const ZeqRequest& request, ClientId client, const Prepared& prepared, Transaction& tx,
                    std::string& answer) const;
    void verifyLogin(const std::shared_ptr<ZeqRequest>& request, ClientId client, Reply reply);
    void makeSettings(const std::shared_ptr<ZeqRequest>& request, ClientId client, Reply reply);
    void prepareSettings(const std::shared_ptr<ZeqRequest>& request, ClientId client, Reply reply);
    /// Why this client, which was logged in, is no longer, as a message key; null when it is, or never was.
    const char* sessionGone(const View& view, ClientId client) const;
    void noteLogin(ClientId client);
    void startBatch();
    void tell(const EventLine& event);
    /// Removes the files that hold what a factory restore forgets. Takes its time.
    void removeFiles() const;
    void finishBatch(const std::string& failure);
    bool keepInMemory();
    void renewDisk(const std::string& failure);
    void applyBatch();
    std::vector<DiskChange> changesToKeep() const;
    void restart() { mRestart = true; }

    EngineParts mParts;
    Store mStore;
    Schedule mSchedule;
    std::unique_ptr<Simulation> mSimulation;
    std::deque<Write> mWrites;
    /// Steps whose batch could not be kept, and when they are tried again (monotonic milliseconds).
    std::deque<std::pair<std::int64_t, std::function<void(Transaction&)>>> mAgain;
    std::unique_ptr<Transaction> mBatch;              ///< being written to disk
    std::vector<std::pair<Write, bool>> mBatchWrites; ///< with what each run answered
    std::size_t mHashing = 0;                         ///< logins and new passwords being worked out
    std::set<ClientId> mLoggingIn;                    ///< clients whose login is in work
    /// Clients that have logged in: their session, and what their account was then.
    struct Holder {
        std::uint32_t session;
        std::uint32_t user;
        std::string hash;
    };
    std::map<ClientId, Holder> mHolders;
    std::set<Transaction::Key>
        mUnkept;                  ///< records that are ahead of the disk; the next batch takes them along
    std::size_t mFailedAlone = 0; ///< so many writes in a row have failed by themselves
    bool mRenewed = false;        ///< the disk has been written anew since it last took something
    bool mBusy = false;
    bool mRestart = false;
};

} // namespace zeqd
