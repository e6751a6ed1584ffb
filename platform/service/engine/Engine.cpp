#include "platform/service/engine/Engine.h"

#include "platform/service/archive/SettingsArchive.h"
#include "platform/service/archive/SettingsText.h"
#include "platform/service/catalogue/Catalogue.h"
#include "platform/service/domain/Devices.h"
#include "platform/service/domain/Sessions.h"
#include "platform/service/engine/Simulation.h"
#include "platform/service/record/RecordJson.h"
#include "platform/service/request/ReadRequest.h"
#include "platform/service/request/WriteRequest.h"
#include "platform/service/rules/SettingsFiles.h"
#include "platform/service/secret/PasswordHash.h"
#include "platform/service/sim/SwitchLife.h"
#include "platform/service/store/SqliteDisk.h"

#include <algorithm>

namespace zeqd {

namespace {

constexpr std::size_t kMaxBatch = 256;
/// Milliseconds after which a step that could not be kept is tried again.
constexpr std::int64_t kRetryMs = 5000;
/// A batch that failed is tried write by write, until so many have failed in a row: then it is the disk.
constexpr std::size_t kMaxFailedAlone = 3;
/// Logins and new passwords that may wait for their hash; more are turned away.
constexpr std::size_t kMaxHashing = 64;

std::vector<DiskChange> diskChanges(const Transaction& batch) {
    std::vector<DiskChange> changes;
    for (const auto& [key, record] : batch.changes()) {
        if (!resource(key.first).durable) continue;
        DiskChange change{key.first, key.second, std::nullopt};
        if (record) change.body = diskText(*record);
        changes.push_back(std::move(change));
    }
    return changes;
}

std::string textParam(const ZeqRequest& request, const char* key) {
    const json_t* value = json_object_get(request.params.get(), key);
    return json_is_string(value) ? json_string_value(value) : "";
}

bool isLogin(const ZeqRequest& request) {
    return request.resource->id == Res::AdminSession && request.method == Method::Create;
}

SettingsResult readSettingsFile(const std::string& path, const std::string& password) {
    std::string why;
    const std::optional<std::string> text = loadSettings(path, password, why);
    if (!text) return {Errno::BadContent, why, {}};
    Errors errors;
    checkSettings(*text, errors);
    if (!errors.empty()) return {errors.front().number, errors.front().detail, {}};
    const std::optional<std::string> packed = packSettings(*text, {});
    if (!packed) return {Errno::General, "service.detail.settings_file", {}};
    return {{}, {}, *packed};
}

bool isSettingsFile(const ZeqRequest& request) {
    return request.resource->id == Res::SwxControl &&
           json_object_get(request.params.get(), "settingsAction") != nullptr;
}

} // namespace

Engine::Engine(EngineParts parts, Store store)
    : mParts(std::move(parts)), mStore(std::move(store)), mSchedule(mParts.clock.monotonicMs()),
      mSimulation(std::make_unique<Simulation>(*this)) {}

Engine::~Engine() = default;

std::optional<std::string> Engine::answerNow(ClientId client, std::string_view text,
                                             ZeqRequest& request) const {
    try {
        Errors errors;
        interpret(text, request, errors);
        if (!errors.empty()) return errorText(request.id, errors);
        if (const char* why = sessionGone(mStore, client); why && !isLogin(request))
            return errorText(request.id, {{Errno::NotAuthorized, why}});
        if (request.resource->id == Res::SimControl && !mParts.options.simControl)
            return errorText(request.id,
                             {{Errno::NotAllowed, "the service was started without --sim-control"}});
        if (request.method == Method::Get) return answerRead(mStore, request, mParts.clock.now());
        return std::nullopt;
    } catch (const std::exception& error) {
        return fault(request, error);
    }
}

std::string Engine::fault(const ZeqRequest& request, const std::exception& error) const {
    mParts.log("error: a fault in a request on " +
               (request.resource ? std::string(request.resource->name) : std::string("nothing")) +
               ", which is refused: " + error.what());
    return errorText(request.id, {{Errno::General, {}}});
}

void Engine::request(ClientId client, std::string_view text, Reply reply) {
    auto request = std::make_shared<ZeqRequest>();
    if (std::optional<std::string> answer = answerNow(client, text, *request))
        return reply(std::move(*answer));
    if (isLogin(*request)) return verifyLogin(request, client, std::move(reply));
    if (isSettingsFile(*request)) return prepareSettings(request, client, std::move(reply));
    const std::set<std::string> secrets = secretsOf(*request);
    if (secrets.empty()) return submitRequest(request, client, {}, std::move(reply));
    if (mHashing >= kMaxHashing) return reply(errorText(request->id, {{Errno::Capacity, {}}}));
    ++mHashing;
    auto prepared = std::make_shared<Prepared>();
    mParts.executor.run(
        Lane::Hash,
        [prepared, secrets, hash = mParts.hash] {
            for (const std::string& secret : secrets) prepared->hashes[secret] = hash(secret);
        },
        [this, request, client, prepared, reply = std::move(reply)] {
            --mHashing;
            submitRequest(request, client, std::move(*prepared), reply);
        });
}

void Engine::verifyLogin(const std::shared_ptr<ZeqRequest>& request, ClientId client, Reply reply) {
    if (mHashing >= kMaxHashing) return reply(errorText(request->id, {{Errno::Capacity, {}}}));
    ++mHashing;
    mLoggingIn.insert(client);
    const std::string name = textParam(*request, "username");
    const RecordPtr user = name.empty() ? nullptr : mStore.findText(Res::User, "name", name);
    const std::string hash = user ? user->text("password") : std::string();
    if (json_object_get(request->params.get(), "resumeKey")) {
        --mHashing;
        Prepared prepared;
        prepared.resumed = true;
        if (user && verifyResumeKey(hash, name, textParam(*request, "resumeKey"))) {
            prepared.verifiedUser = user->index();
            prepared.verifiedHash = hash;
        }
        return submitRequest(request, client, std::move(prepared), std::move(reply));
    }
    auto right = std::make_shared<bool>(false);
    mParts.executor.run(
        Lane::Hash,
        [right, hash, known = user != nullptr, password = textParam(*request, "password")] {
            *right = verifyPassword(known ? hash : decoyHash(), password);
        },
        [this, right, hash, user, request, client, reply = std::move(reply)] {
            --mHashing;
            if (!mLoggingIn.contains(client)) return; // it did not wait for the answer
            Prepared prepared;
            if (*right && user) {
                prepared.verifiedUser = user->index();
                prepared.verifiedHash = hash;
            }
            submitRequest(request, client, std::move(prepared), reply);
        });
}

void Engine::prepareSettings(const std::shared_ptr<ZeqRequest>& request, ClientId client, Reply reply) {
    // A restore that is under way is to find no file that comes behind it.
    if (const RecordPtr self = mStore.find(Res::Swx, kThisSwitch); self && self->is("status", "resetting"))
        return reply(errorText(request->id, {{Errno::SwxResetting, {}}}));
    Errors errors;
    checkAction(*request, errors);
    for (const char* other : {"eid", "cascadeRoleAction"})
        if (json_object_get(request->params.get(), other)) addError(errors, Errno::InvalidParameter, other);
    if (!errors.empty()) return reply(errorText(request->id, errors));
    if (textParam(*request, "settingsAction") == "zip")
        return makeSettings(request, client, std::move(reply));
    auto prepared = std::make_shared<Prepared>();
    prepared->settings = {Errno::General, "service.detail.settings_file", {}};
    mParts.executor.run(
        Lane::Archive,
        [prepared, password = textParam(*request, "settingsPassword"),
         path = textParam(*request, "settingsFilename")] {
            prepared->settings = readSettingsFile(path, password);
        },
        [this, request, client, prepared, reply = std::move(reply)] {
            submitRequest(request, client, std::move(*prepared), reply);
        });
}

/// The file takes the place of the one before only when nothing stands against the request any more.
void Engine::makeSettings(const std::shared_ptr<ZeqRequest>& request, ClientId client, Reply reply) {
    auto failure = std::make_shared<std::string>("it was not tried");
    const auto answer = [this, request, failure, reply] {
        if (failure->empty()) return reply(answerText(request->id));
        mParts.log("error: no settings file: " + *failure);
        reply(errorText(request->id, {{Errno::General, "service.detail.settings_folder"}}));
    };
    mParts.executor.run(
        Lane::Archive,
        [failure, password = textParam(*request, "settingsPassword"), folder = mParts.settingsDir,
         store = std::make_shared<const Store>(mStore),
         now = mParts.clock.now()] { *failure = saveSettings(folder, settingsText(*store, now), password); },
        [this, request, client, failure, answer, reply] {
            if (!failure->empty()) return answer();
            const char* why = sessionGone(mStore, client);
            const bool sealed = !textParam(*request, "settingsPassword").empty();
            mParts.executor.run(
                Lane::Archive,
                [failure, sealed, keep = why == nullptr, folder = mParts.settingsDir] {
                    *failure = "it was not tried";
                    *failure = keep ? publishSettings(folder, sealed) : dropSettings(folder, sealed);
                },
                [this, request, why, answer, reply] {
                    if (!why) return answer();
                    reply(errorText(request->id, {{Errno::NotAuthorized, why}}));
                });
        });
}

bool Engine::runRequest(const ZeqRequest& request, ClientId client, const Prepared& prepared, Transaction& tx,
                        std::string& answer) const {
    Errors errors;
    Context context{tx, errors, mParts.clock.now(), request.method, client, prepared};
    if (const char* why = sessionGone(tx, client); why && !isLogin(request)) {
        answer = errorText(request.id, {{Errno::NotAuthorized, why}});
        return false;
    }
    answer = runWrite(request, context);
    if (errors.empty()) return true;
    // A refusal keeps nothing of the request, but the event that tells of it.
    tx.clear();
    if (context.failureAlert.kind)
        raiseAlert(tx, context.now, *context.failureAlert.kind, thisSwitchEid(tx),
                   context.failureAlert.message);
    return false;
}

void Engine::submitRequest(const std::shared_ptr<ZeqRequest>& request, ClientId client, Prepared prepared,
                           Reply reply) {
    auto answer = std::make_shared<std::string>();
    Write write;
    write.session = request->resource->id == Res::AdminSession;
    write.run = [this, request, client, prepared = std::move(prepared), answer](Transaction& tx) {
        try {
            return runRequest(*request, client, prepared, tx, *answer);
        } catch (const std::exception& error) {
            tx.clear();
            *answer = fault(*request, error);
            return false;
        }
    };
    write.done = [this, client, request, answer, reply = std::move(reply)](bool kept) {
        if (mLoggingIn.erase(client) && kept && isLogin(*request)) noteLogin(client);
        reply(kept ? std::move(*answer) : errorText(request->id, {{Errno::General, "service.detail.disk"}}));
    };
    submit(std::move(write));
}

const char* Engine::sessionGone(const View& view, ClientId client) const {
    const auto found = mHolders.find(client);
    if (found == mHolders.end()) return nullptr;
    const Holder& holder = found->second;
    if (view.find(Res::AdminSession, holder.session)) return nullptr;
    const RecordPtr user = view.find(Res::User, holder.user);
    const bool same = user && user->enabled("accountEnable") && user->is("role", "admin") &&
                      user->text("password") == holder.hash;
    return same ? "service.detail.session_ended" : "service.detail.session_account";
}

void Engine::noteLogin(ClientId client) {
    mStore.each(Res::AdminSession, [&](const RecordPtr& session) {
        if (session->number("simClient") != static_cast<std::uint32_t>(client)) return true;
        const RecordPtr user = mStore.find(Res::User, session->number("userIndex"));
        mHolders[client] = {session->index(), session->number("userIndex"),
                            user ? user->text("password") : std::string()};
        return true; // the newest counts
    });
}

void Engine::submit(Write write) {
    mWrites.push_back(std::move(write));
}

void Engine::submitStep(std::function<void(Transaction&)> run, bool session) {
    const auto again = [this, run](bool kept) {
        if (!kept) mAgain.emplace_back(mParts.clock.monotonicMs() + kRetryMs, run);
    };
    submit({[run = std::move(run)](Transaction& tx) {
                run(tx);
                return true;
            },
            again, session});
}

void Engine::flush() {
    while (!mBusy && !mWrites.empty()) startBatch();
}

void Engine::removeFiles() const {
    for (const std::string& failure : {removeSettings(mParts.settingsDir), removeSetAside(mParts.database)})
        if (!failure.empty()) mParts.log("error: a file of before the factory restore stays: " + failure);
}

void Engine::startBatch() {
    mBusy = true;
    mBatch = std::make_unique<Transaction>(&mStore);
    while (!mWrites.empty() && mBatchWrites.size() < kMaxBatch) {
        if (mWrites.front().alone && !mBatchWrites.empty()) break;
        Write write = std::move(mWrites.front());
        mWrites.pop_front();
        Transaction tx(mBatch.get());
        bool good = false;
        try {
            good = write.run(tx);
            moveChangeStatus(tx);
        } catch (const std::exception& error) {
            tx.clear(); // the fault comes again each time, so a step is not tried again
            mParts.log(std::string("error: a fault in a step, which is left out: ") + error.what());
        }
        mBatch->merge(std::move(tx));
        mBatchWrites.emplace_back(std::move(write), good);
        if (mBatchWrites.back().first.alone) break;
    }
    const bool alone = mBatchWrites.front().first.alone;
    if (!alone) mFailedAlone = 0;
    auto changes = std::make_shared<std::vector<DiskChange>>(changesToKeep());
    if (changes->empty()) return finishBatch({});
    if (alone && mFailedAlone >= kMaxFailedAlone)
        return finishBatch("not tried after the failures before it");
    auto failure = std::make_shared<std::string>("it was not tried");
    mParts.executor.run(
        Lane::Disk, [this, changes, failure] { *failure = mParts.disk.write(*changes); },
        [this, failure] { finishBatch(*failure); });
}

std::vector<DiskChange> Engine::changesToKeep() const {
    std::vector<DiskChange> changes = diskChanges(*mBatch);
    if (changes.empty()) return changes;
    for (const auto& [id, index] : mUnkept) {
        if (mBatch->changes().contains({id, index})) continue;
        DiskChange change{id, index, std::nullopt};
        if (const RecordPtr record = mStore.find(id, index)) change.body = diskText(*record);
        changes.push_back(std::move(change));
    }
    return changes;
}

void Engine::applyBatch() {
    mStore.apply(*mBatch);
    for (const TimedTask& task : mBatch->tasks()) mSchedule.add(mParts.clock.monotonicMs(), task);
    for (const EventLine& line : mBatch->logLines()) tell(line);
}

/// A full disk is to lock no administrator out. The session is no record on disk anyway; its event and the
/// change numbers get there later.
bool Engine::keepInMemory() {
    const auto& [write, good] = mBatchWrites.front();
    if (mBatchWrites.size() != 1 || !(write.session || !good)) return false;
    for (const auto& [key, record] : mBatch->changes())
        if (key.first != Res::AdminSession && key.first != Res::ChangeStatus &&
            key.first != Res::UnacknowledgedAlerts && key.first != Res::HistoricalAlerts)
            return false;
    applyBatch();
    for (const auto& [key, record] : mBatch->changes())
        if (resource(key.first).durable) mUnkept.insert(key);
    return true;
}

/// All that was ever answered as kept is in memory: a database that turns out to be damaged is written anew from there, and
/// the batch is tried again.
void Engine::renewDisk(const std::string& failure) {
    mRenewed = true;
    mParts.log("error: the database is damaged, it is written anew: " + failure);
    auto content = std::make_shared<DiskContent>(mStore.content());
    auto result = std::make_shared<std::string>("it was not tried");
    mParts.executor.run(
        Lane::Disk, [this, content, result] { *result = mParts.disk.renew(*content); },
        [this, result] {
            if (!result->empty()) return finishBatch("it could not be written anew: " + *result);
            mBatch.reset();
            for (; !mBatchWrites.empty(); mBatchWrites.pop_back())
                mWrites.push_front(std::move(mBatchWrites.back().first));
            mBusy = false;
            submitStep([this](Transaction& tx) {
                addAlert(
                    tx, mParts.clock.now(), "error", thisSwitchEid(tx),
                    "The database was found damaged. It has been set aside and written anew; nothing is lost.");
            });
        });
}

void Engine::finishBatch(const std::string& failure) {
    const bool written = failure.empty();
    bool kept = written;
    if (!written && mParts.disk.damaged() && !mRenewed) return renewDisk(failure);
    if (written) {
        mRenewed = false;
        if (!diskChanges(*mBatch).empty()) mUnkept.clear();
        applyBatch();
    } else {
        mParts.log("error: writing to the database failed, nothing of it is kept: " + failure);
        kept = keepInMemory();
    }
    mBatch.reset();
    std::vector<std::pair<Write, bool>> writes;
    writes.swap(mBatchWrites);
    mBusy = false;
    // One that the disk does not take is to refuse itself and not those that came with it.
    if (!kept && writes.size() > 1) {
        for (auto write = writes.rbegin(); write != writes.rend(); ++write) {
            write->first.alone = true;
            mWrites.push_front(std::move(write->first));
        }
        return;
    }
    mFailedAlone = written ? 0 : mFailedAlone + 1;
    // A request that was refused has its answer whatever became of the disk.
    for (auto& [write, good] : writes)
        if (write.done) write.done(kept || !good);
}

void Engine::tell(const EventLine& event) {
    mParts.log(event.severity + " " + event.origin + ": " + event.message);
    if (mParts.syslog)
        mParts.syslog(mStore.singleton(Res::SystemGlobals).text("syslogDest"), event, thisSwitchEid(mStore));
}

void Engine::clientGone(ClientId client) {
    // A login that is being written has its session before the write that is queued here.
    const bool loggingIn = mLoggingIn.erase(client) > 0;
    mHolders.erase(client);
    const auto number = static_cast<std::uint32_t>(client);
    if (!loggingIn && !mStore.findNumber(Res::AdminSession, "simClient", number) &&
        !mStore.findNumber(Res::User, "simClient", number))
        return;
    submitStep([this, client](Transaction& tx) {
        endAdminSessionsOfClient(tx, mParts.clock.now(), client);
        removeProvisionalUsersOf(tx, client);
    });
}

void Engine::runDue() {
    const std::int64_t now = mParts.clock.monotonicMs();
    for (; !mAgain.empty() && mAgain.front().first <= now; mAgain.pop_front())
        submitStep(std::move(mAgain.front().second));
    for (const Task& task : mSchedule.takeDue(now))
        if (!mSimulation->runNow(task))
            submitStep([this, task](Transaction& tx) { mSimulation->run(task, tx); });
}

void Engine::start(std::int64_t timeFactor) {
    mSchedule.setFactor(mParts.clock.monotonicMs(), timeFactor);
    const bool restore = owesRestore(mStore);
    if (restore) removeFiles();
    submitStep([this, restore](Transaction& tx) {
        const std::int64_t now = mParts.clock.now();
        if (restore)
            factoryThisSwitch(tx, now);
        else if (std::string told = installPendingSettings(tx); !told.empty()) {
            if (!tx.singleton(Res::EventLogControl).enabled("info")) mParts.log(told);
            addAlert(tx, now, "info", thisSwitchEid(tx), std::move(told));
        }
        removeProvisionalUsers(tx);
        mSimulation->resume(tx);
    });
    flush();
}

std::optional<std::int64_t> Engine::nextDue() const {
    const std::optional<std::int64_t> next = mSchedule.nextDue();
    if (mAgain.empty()) return next;
    return std::min(next.value_or(INT64_MAX), mAgain.front().first);
}

} // namespace zeqd
