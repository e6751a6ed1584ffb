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

namespace zeqd {

namespace {

constexpr std::size_t kMaxBatch = 256;
/// Simulated milliseconds after which a step that could not be kept is tried again.
constexpr std::int64_t kRetryMs = 5000;
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

bool isSettingsFile(const ZeqRequest& request) {
    return request.resource->id == Res::SwxControl &&
           json_object_get(request.params.get(), "settingsAction") != nullptr;
}

} // namespace

Engine::Engine(EngineParts parts, Store store)
    : mParts(std::move(parts)), mStore(std::move(store)), mSchedule(mParts.clock.monotonicMs()),
      mSimulation(std::make_unique<Simulation>(*this)) {}

Engine::~Engine() = default;

void Engine::request(ClientId client, std::string_view text, Reply reply) {
    auto request = std::make_shared<ZeqRequest>();
    Errors errors;
    interpret(text, *request, errors);
    if (!errors.empty()) return reply(errorText(request->id, errors));
    if (const char* why = sessionGone(mStore, client); why && !isLogin(*request))
        return reply(errorText(request->id, {{Errno::NotAuthorized, why}}));
    if (request->method == Method::Get) return reply(answerRead(mStore, *request, mParts.clock.now()));
    if (isLogin(*request)) return verifyLogin(request, client, std::move(reply));
    if (isSettingsFile(*request)) return prepareSettings(request, client, std::move(reply));
    const std::set<std::string> secrets = secretsOf(*request);
    if (secrets.empty()) return submitRequest(request, client, {}, std::move(reply));
    if (mHashing >= kMaxHashing) return reply(errorText(request->id, {{Errno::Capacity, {}}}));
    ++mHashing;
    auto prepared = std::make_shared<Prepared>();
    mParts.executor.run(
        Lane::Hash,
        [prepared, secrets] {
            for (const std::string& secret : secrets) prepared->hashes[secret] = hashPassword(secret);
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
    auto prepared = std::make_shared<Prepared>();
    const std::string action = textParam(*request, "settingsAction");
    std::function<void()> work;
    if (action == "zip") {
        work = [prepared, password = textParam(*request, "settingsPassword"), folder = mParts.settingsDir,
                text = settingsText(mStore, mParts.clock.now()), log = mParts.log] {
            const std::string failure = saveSettings(folder, text, password);
            if (failure.empty()) return;
            prepared->settings = {Errno::General, "service.detail.settings_folder", {}};
            log("error: no settings file: " + failure);
        };
    } else {
        work = [prepared, password = textParam(*request, "settingsPassword"),
                path = textParam(*request, "settingsFilename")] {
            std::string why;
            std::optional<std::string> text = loadSettings(path, password, why);
            if (text)
                prepared->settings.text = std::move(*text);
            else
                prepared->settings = {Errno::BadContent, why, {}};
        };
    }
    mParts.executor.run(Lane::Archive, std::move(work),
                        [this, request, client, prepared, reply = std::move(reply)] {
                            submitRequest(request, client, std::move(*prepared), reply);
                        });
}

void Engine::submitRequest(const std::shared_ptr<ZeqRequest>& request, ClientId client, Prepared prepared,
                           Reply reply) {
    auto answer = std::make_shared<std::string>();
    Write write;
    write.run = [this, request, client, prepared = std::move(prepared), answer](Transaction& tx) {
        Errors errors;
        Context context{tx, errors, mParts.clock.now(), request->method, client, prepared};
        if (const char* why = sessionGone(tx, client); why && !isLogin(*request)) {
            *answer = errorText(request->id, {{Errno::NotAuthorized, why}});
            return false;
        }
        *answer = runWrite(*request, context);
        if (errors.empty()) return true;
        // A refusal keeps nothing of the request, but the event that tells of it.
        tx.clear();
        if (context.failureAlert.kind)
            raiseAlert(tx, context.now, *context.failureAlert.kind, thisSwitchEid(tx),
                       context.failureAlert.message);
        return false;
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

void Engine::flush() {
    while (!mBusy && !mWrites.empty()) startBatch();
}

void Engine::startBatch() {
    mBusy = true;
    mBatch = std::make_unique<Transaction>(&mStore);
    while (!mWrites.empty() && mBatchWrites.size() < kMaxBatch) {
        Write write = std::move(mWrites.front());
        mWrites.pop_front();
        Transaction tx(mBatch.get());
        const bool good = write.run(tx);
        moveChangeStatus(tx);
        mBatch->merge(std::move(tx));
        mBatchWrites.emplace_back(std::move(write), good);
    }
    auto changes = std::make_shared<std::vector<DiskChange>>(diskChanges(*mBatch));
    if (changes->empty()) return finishBatch({});
    auto failure = std::make_shared<std::string>();
    mParts.executor.run(
        Lane::Disk, [this, changes, failure] { *failure = mParts.disk.write(*changes); },
        [this, failure] { finishBatch(*failure); });
}

void Engine::finishBatch(const std::string& failure) {
    const bool kept = failure.empty();
    if (kept) {
        mStore.apply(*mBatch);
        for (const TimedTask& task : mBatch->tasks()) mSchedule.add(mParts.clock.monotonicMs(), task);
        for (const EventLine& line : mBatch->logLines()) tell(line);
    } else {
        mParts.log("error: writing to the database failed, nothing of it is kept: " + failure);
    }
    mBatch.reset();
    std::vector<std::pair<Write, bool>> writes;
    writes.swap(mBatchWrites);
    mBusy = false;
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
    submit({[this, client](Transaction& tx) {
                endAdminSessionsOfClient(tx, mParts.clock.now(), client);
                removeProvisionalUsersOf(tx, client);
                return true;
            },
            {}});
}

void Engine::runDue() {
    const auto again = [this](const Task& task) {
        return [this, task](bool kept) {
            if (!kept) mSchedule.add(mParts.clock.monotonicMs(), {task, kRetryMs});
        };
    };
    for (const Task& task : mSchedule.takeDue(mParts.clock.monotonicMs()))
        submit({[this, task](Transaction& tx) {
                    mSimulation->run(task, tx);
                    return true;
                },
                again(task)});
}

void Engine::start(std::int64_t timeFactor, const std::string& damaged) {
    mSchedule.setFactor(mParts.clock.monotonicMs(), timeFactor);
    submit({[this, damaged](Transaction& tx) {
                if (!damaged.empty())
                    addAlert(tx, mParts.clock.now(), "error", thisSwitchEid(tx),
                             "The database was damaged. It has been set aside as " + damaged +
                                 ", and the Switch has started with a new one.");
                if (installPendingSettings(tx))
                    addAlert(tx, mParts.clock.now(), "info", thisSwitchEid(tx),
                             "Settings of a settings file have been installed");
                removeProvisionalUsers(tx);
                mSimulation->resume(tx);
                return true;
            },
            {}});
    flush();
}

std::optional<std::int64_t> Engine::nextDue() const {
    return mSchedule.nextDue();
}

} // namespace zeqd
