// Looks at records again and again and prints what differs.
#include "platform/ctl/Print.h"
#include "platform/ctl/ReadCommands.h"
#include "platform/ctl/RemoteCatalogue.h"

#include <ctime>
#include <map>
#include <optional>
#include <thread>

namespace zeqctl {

namespace {

using Records = std::map<json_int_t, JsonPtr>; // by index; a singleton under 0

class Watch {
public:
    Watch(Context& context, ReadWords words)
        : mContext(context), mWords(std::move(words)), mSelect(mWords.select()) {
        const bool singleton = readCatalogue(context.service, mWords.resource).shape == "singleton";
        if (!mSelect.empty() && !singleton) mSelect.emplace_back("index");
    }

    void run() {
        Records before = *look(); // the first look has records or throws
        while (!done()) {
            std::this_thread::sleep_for(mContext.options.interval);
            std::optional<Records> now = look();
            if (!now) continue;
            compare(before, *now);
            before = std::move(*now);
        }
    }

private:
    bool done() const { return mContext.options.count > 0 && mChanges >= mContext.options.count; }

    /// Nothing while the service is away, which is said once.
    std::optional<Records> look() {
        Records records;
        try {
            const JsonPtr rows = mContext.service.get(mWords.resource, mWords.query.get(), mSelect);
            for (std::size_t i = 0; i < json_array_size(rows.get()); ++i) {
                json_t* row = json_array_get(rows.get(), i);
                records[json_integer_value(json_object_get(row, "index"))].reset(json_incref(row));
            }
        } catch (const Refusal& refusal) {
            if (!refusal.noEntries()) throw;
        } catch (const Failure& failure) {
            if (failure.code() != Exit::NoService || mFirst) throw;
            if (!mAway) mContext.err << "zeqctl: " << failure.what() << std::endl;
            mAway = true;
            return std::nullopt;
        }
        if (mAway) mContext.err << "zeqctl: the database service is back" << std::endl;
        mAway = mFirst = false;
        return records;
    }

    void compare(const Records& before, const Records& now) {
        for (const auto& [index, record] : before) {
            if (!now.contains(index)) report(index, "", record.get(), nullptr);
        }
        for (const auto& [index, record] : now) {
            const auto old = before.find(index);
            if (old == before.end()) {
                report(index, "", nullptr, record.get());
            } else {
                compareKeys(index, old->second.get(), record.get());
            }
        }
    }

    void compareKeys(json_int_t index, json_t* before, json_t* now) {
        const char* key;
        json_t* value;
        json_object_foreach(now, key, value) {
            const json_t* old = json_object_get(before, key);
            if (!old || !json_equal(const_cast<json_t*>(old), value)) report(index, key, old, value);
        }
        json_object_foreach(before, key, value) {
            if (!json_object_get(now, key)) report(index, key, value, nullptr);
        }
    }

    /// `key` empty: the record as a whole came or went.
    void report(json_int_t index, const std::string& key, const json_t* before, const json_t* now) {
        if (done()) return;
        ++mChanges;
        if (mContext.options.json) return reportJson(index, key, before, now);
        mContext.out << timeText(std::time(nullptr)) << "  " << mWords.resource;
        if (index != 0) mContext.out << ' ' << index;
        if (key.empty()) {
            const json_t* name = json_object_get(before ? before : now, "name");
            if (name) mContext.out << " '" << valueText(name, "name") << '\'';
            mContext.out << (before ? "  deleted" : "  created");
        } else {
            mContext.out << "  " << key << ": " << valueText(before, key) << " -> " << valueText(now, key);
        }
        mContext.out << std::endl;
    }

    void reportJson(json_int_t index, const std::string& key, const json_t* before, const json_t* now) {
        const JsonPtr line(json_object());
        const bool secret = isSecret(key);
        const auto shown = [&](const json_t* value) {
            return !value ? json_null() : secret ? json_string("********") : json_deep_copy(value);
        };
        json_object_set_new(line.get(), "time", json_string(timeText(std::time(nullptr)).c_str()));
        json_object_set_new(line.get(), "resource", json_string(mWords.resource.c_str()));
        json_object_set_new(line.get(), "index", json_integer(index));
        if (!key.empty()) json_object_set_new(line.get(), "key", json_string(key.c_str()));
        json_object_set_new(line.get(), "old", shown(before));
        json_object_set_new(line.get(), "new", shown(now));
        printJson(mContext.out, line.get(), true);
        mContext.out.flush();
    }

    Context& mContext;
    ReadWords mWords;
    std::vector<std::string> mSelect;
    unsigned mChanges = 0;
    bool mFirst = true;
    bool mAway = false;
};

} // namespace

void runWatch(Context& context) {
    Watch(context, parseReadWords(context)).run();
}

} // namespace zeqctl
