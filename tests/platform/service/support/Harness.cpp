#include "tests/platform/service/support/Harness.h"

#include "platform/service/catalogue/Catalogue.h"
#include "platform/service/demo/Installation.h"
#include "platform/service/record/FieldReader.h"
#include "platform/service/record/RecordJson.h"

#include <sodium.h>
#include <stdexcept>
#include <utility>

namespace zeqd::testing {

std::string FakeDisk::write(const std::vector<DiskChange>& changes) {
    ++writes;
    if (broken) return "database disk image is malformed";
    if (failures > 0) {
        --failures;
        return "no space left on device";
    }
    for (const DiskChange& change : changes)
        if (!poison.empty() && change.body && change.body->find(poison) != std::string::npos)
            return "too large";
    for (const DiskChange& change : changes) {
        if (change.body)
            records[{change.resource, change.index}] = *change.body;
        else
            records.erase({change.resource, change.index});
    }
    return {};
}

std::string FakeDisk::renew(const DiskContent& content) {
    ++renewals;
    records.clear();
    for (const DiskChange& change : content.records) records[{change.resource, change.index}] = *change.body;
    broken = false;
    return {};
}

void StepExecutor::run(Lane lane, std::function<void()> work, std::function<void()> done) {
    ++runs[static_cast<std::size_t>(lane)];
    mJobs.push_back({lane, std::move(work), std::move(done)});
}

bool StepExecutor::step(Lane lane) {
    for (auto job = mJobs.begin(); job != mJobs.end(); ++job) {
        if (job->lane != lane) continue;
        const Job taken = std::move(*job);
        mJobs.erase(job);
        taken.work();
        taken.done();
        return true;
    }
    return false;
}

bool StepExecutor::stepAny() {
    return !mJobs.empty() && step(mJobs.front().lane);
}

Answer::Answer(const std::string& text) : mText(text), mJson(json_loads(text.c_str(), 0, nullptr)) {
    if (!mJson) throw std::runtime_error("no JSON: " + text);
}

int Answer::error() const {
    const json_t* first = json_array_get(json_object_get(mJson.get(), "errors"), 0);
    return static_cast<int>(json_integer_value(json_object_get(first, "errno")));
}

std::string Answer::detail() const {
    const json_t* first = json_array_get(json_object_get(mJson.get(), "errors"), 0);
    const char* text = json_string_value(json_object_get(first, "detail"));
    return text ? text : "";
}

std::size_t Answer::errorCount() const {
    return json_array_size(json_object_get(mJson.get(), "errors"));
}
std::size_t Answer::rowCount() const {
    return json_array_size(rows());
}

std::string Answer::at(const std::string& path, std::size_t row) const {
    const json_t* value = json_array_get(rows(), row);
    std::size_t begin = 0;
    while (begin <= path.size()) {
        const std::size_t end = std::min(path.find('/', begin), path.size());
        value = json_object_get(value, path.substr(begin, end - begin).c_str());
        begin = end + 1;
    }
    if (!value) return "(absent)";
    if (json_is_string(value)) return json_string_value(value);
    char* text = json_dumps(value, JSON_ENCODE_ANY | JSON_COMPACT);
    std::string out = text;
    free(text);
    return out;
}

Harness::Harness(Installation installation) {
    if (sodium_init() < 0) throw std::runtime_error("sodium");
    InstallationPlan plan;
    plan.kind =
        installation == Installation::Demo ? InstallationPlan::Kind::Demo : InstallationPlan::Kind::Empty;
    plan.dataDir = MIRL_SOURCE_DIR "/platform/service/data";
    plan.adminPassword = kPassword;
    plan.now = clock.now();
    for (const RecordPtr& record : makeInstallation(plan)) {
        disk.records[{record->id(), record->index()}] = diskText(*record);
    }
    restart();
}

void Harness::restart() {
    engine.reset();
    executor = StepExecutor();
    Store store;
    for (const auto& [key, body] : disk.records) {
        const JsonPtr json(json_loads(body.c_str(), 0, nullptr));
        Record record(key.first, key.second);
        Errors errors;
        FieldReader(Writing::Load, errors).merge(json.get(), record.rows(), record.fields());
        if (!errors.empty()) throw std::runtime_error("not readable: " + body);
        store.load(std::make_shared<const Record>(std::move(record)));
    }
    boot(std::move(store));
}

void Harness::boot(Store store) {
    engine = std::make_unique<Engine>(
        EngineParts{clock,
                    disk,
                    executor,
                    [this](const std::string& line) { log.push_back(line); },
                    settingsDir,
                    database,
                    [this](const auto& server, const EventLine& event, const auto& eid) {
                        syslog.push_back(server + " " + event.severity + " " + event.message + " " + eid);
                    },
                    [this](std::string_view password) { return hash(password); },
                    {.localServers = true, .simControl = simControl, .living = living}},
        std::move(store));
    engine->start(1);
    settle();
}

void Harness::settle() {
    const auto due = [this] { return engine->nextDue().value_or(INT64_MAX) <= clock.monotonicMs(); };
    do {
        engine->runDue();
        engine->flush();
    } while (executor.stepAny() || due());
}

Answer Harness::ask(const std::string& request, ClientId client) {
    std::string answer;
    const std::string full = "{\"id\":1," + request.substr(request.find('{') + 1);
    engine->request(client, full, [&answer](std::string text) { answer = std::move(text); });
    settle();
    return Answer(answer);
}

Answer Harness::get(const std::string& resource, const std::string& members) {
    return ask("{\"method\":\"get\",\"resource\":\"" + resource + "\"" +
               (members.empty() ? "" : "," + members) + "}");
}
Answer Harness::set(const std::string& resource, const std::string& params) {
    return ask("{\"method\":\"set\",\"resource\":\"" + resource + "\",\"params\":" + params + "}");
}
Answer Harness::create(const std::string& resource, const std::string& params) {
    return ask("{\"method\":\"create\",\"resource\":\"" + resource + "\",\"params\":" + params + "}");
}
Answer Harness::remove(const std::string& resource, int index) {
    return ask("{\"method\":\"delete\",\"resource\":\"" + resource +
               "\",\"params\":{\"index\":" + std::to_string(index) + "}}");
}

std::string Harness::value(const std::string& resource, int index, const std::string& key) {
    const std::string query = index ? "\"query\":{\"index\":" + std::to_string(index) + "}" : "";
    const Answer answer = get(resource, query);
    return answer.error() ? "error " + std::to_string(answer.error()) : answer.at(key);
}

void Harness::pass(std::int64_t milliseconds) {
    const std::int64_t end = clock.monotonicMs() + milliseconds;
    while (true) {
        const std::optional<std::int64_t> due = engine->nextDue();
        if (!due || *due > end) break;
        clock.advance(*due - clock.monotonicMs());
        settle();
    }
    clock.advance(end - clock.monotonicMs());
}

std::string dump(const View& view) {
    std::string out;
    for (const ResourceRow& row : catalogue())
        view.each(row.id, [&](const RecordPtr& record) {
            out += std::string(row.name) + " " + std::to_string(record->index()) + " " + diskText(*record) +
                   "\n";
            return true;
        });
    return out;
}

} // namespace zeqd::testing
