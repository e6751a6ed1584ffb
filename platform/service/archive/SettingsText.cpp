#include "platform/service/archive/SettingsText.h"

#include "platform/service/archive/SettingsReader.h"
#include "platform/service/catalogue/Catalogue.h"
#include "platform/service/record/RecordJson.h"

#include <map>
#include <set>
#include <unordered_map>

namespace zeqd {

namespace {

using Places = std::unordered_map<std::uint32_t, std::uint32_t>;

/// Two keys of a user point to Transmitters by their numbers.
bool pointsToTransmitters(std::string_view key) {
    return key == "target" || key == "favorite";
}

/// "0-17,20". An entry whose Transmitter has gone is left out.
std::string placesText(const Entries& entries, const Places& places) {
    std::string out;
    for (std::size_t i = 0; i < entries.size();) {
        const auto first = places.find(static_cast<std::uint32_t>(entries[i++][0].number()));
        if (first == places.end()) continue;
        std::uint32_t last = first->second;
        for (; i < entries.size(); ++i, ++last) {
            const auto next = places.find(static_cast<std::uint32_t>(entries[i][0].number()));
            if (next == places.end() || next->second != last + 1) break;
        }
        if (!out.empty()) out += ',';
        out += std::to_string(first->second);
        if (last != first->second) out += '-' + std::to_string(last);
    }
    return out;
}

/// Of a device only what somebody has changed.
bool isWritten(const SettingsPart& part, const KeyRow& row, const Value& value) {
    if (row.access == Access::Act || !value.isSet() || pointsToTransmitters(row.key)) return false;
    if (part.merging == Merging::ByName) return row.access != Access::Internal;
    if (row.key == "eid") return true;
    return row.access == Access::Write &&
           (part.merging == Merging::Settings || !sameValue(value, defaultValue(row)));
}

void appendRecord(std::string& out, const SettingsPart& part, const Record& record, const Places& places) {
    out += "{\"index\":" + std::to_string(record.index());
    const auto begin = [&out](std::string_view key) {
        out += ',';
        appendJsonString(out, key);
        out += ':';
    };
    for (std::size_t i = 0; i < record.rows().size(); ++i) {
        if (!isWritten(part, record.rows()[i], record.fields()[i])) continue;
        begin(record.rows()[i].key);
        appendValue(out, record.rows()[i], record.fields()[i], Audience::Disk);
    }
    if (part.id == Res::User) {
        begin(kTargetsKey);
        appendJsonString(out, placesText(record.at("target").entries(), places));
        begin(kFavoritesKey);
        appendJsonString(out, placesText(record.at("favorite").entries(), places));
    }
    out += '}';
}

/// Puts the file's records in place of the system's.
class Installation {
public:
    Installation(Transaction& tx, const SettingsContent& content) : mTx(tx), mContent(content) {
        for (const SettingsPart& part : kSettingsParts)
            if (part.merging != Merging::Settings)
                tx.each(part.id, [&](const RecordPtr& record) {
                    mBefore[part.id].emplace(nameOf(part, *record), record);
                    return true;
                });
    }

    void add(const SettingsPart& part, SettingsRecord given) {
        if (part.merging == Merging::ByName) return addNamed(part, std::move(given));
        const RecordPtr stored = part.merging == Merging::Settings ? mTx.find(part.id, 0)
                                                                   : before(part, nameOf(part, given.record));
        if (!stored) return;
        Record next = *stored;
        for (std::size_t i = 0; i < next.rows().size(); ++i) // an update source is no setting
            if (next.rows()[i].access == Access::Write && next.rows()[i].key != "upgradeIndex")
                next.fields()[i] = given.record.fields()[i];
        if (part.id == Res::Rx) {
            const auto user = mUsers.find(next.number("autoLoginUserIndex"));
            next.set("autoLoginUserIndex", user == mUsers.end() ? 0 : user->second);
        }
        mTx.put(std::move(next));
    }

    /// What the file does not have goes, and what pointed there.
    void finish() {
        for (const Res id : {Res::User, Res::Edid})
            for (const auto& [name, record] : mBefore[id])
                if (!mKept.contains({id, record->index()})) mTx.erase(id, record->index());
        std::vector<Record> cleared;
        mTx.each(Res::Rx, [&](const RecordPtr& rx) {
            const std::uint32_t user = rx->number("autoLoginUserIndex");
            if (user ? !mTx.find(Res::User, user) : rx->enabled("autoLoginControl")) cleared.push_back(*rx);
            return true;
        });
        for (Record& rx : cleared) {
            rx.set("autoLoginUserIndex", 0).choose("autoLoginControl", "disabled");
            mTx.put(std::move(rx));
        }
        mReport.logins = cleared.size();
        mReport.targets += mContent.unknown;
    }

    const SettingsReport& report() const { return mReport; }

private:
    static std::string nameOf(const SettingsPart& part, const Record& record) {
        if (part.merging == Merging::ByEid) return record.text("eid");
        const std::string& name = record.text("name");
        return name.empty() && part.id == Res::User ? " " + record.text("mgrName") : name;
    }
    RecordPtr before(const SettingsPart& part, const std::string& name) const {
        const auto records = mBefore.find(part.id); // a new Switch has no records of many kinds
        if (records == mBefore.end()) return nullptr;
        const auto found = records->second.find(name);
        return found == records->second.end() ? nullptr : found->second;
    }

    void addNamed(const SettingsPart& part, SettingsRecord given) {
        const RecordPtr same = before(part, nameOf(part, given.record));
        // The block of a monitor never changes under its index.
        const bool keeps = same && (part.id != Res::Edid || same->text("data") == given.record.text("data"));
        Record next(part.id, keeps ? same->index() : mTx.nextIndex(part.id));
        next.fields() = given.record.fields();
        if (part.id == Res::User) {
            mUsers[given.record.index()] = next.index();
            next.at("target") = entriesOf(given.targets);
            next.at("favorite") = entriesOf(given.favorites);
        }
        mKept.emplace(part.id, next.index());
        mTx.put(std::move(next));
    }

    EntriesPtr entriesOf(const std::vector<std::uint32_t>& places) {
        const SettingsPart part{Res::Tx, Merging::ByEid};
        auto entries = std::make_shared<Entries>();
        for (const std::uint32_t place : places) {
            if (const RecordPtr tx = before(part, mContent.eids[place]))
                entries->push_back({Value(static_cast<std::int64_t>(tx->index()))});
            else
                ++mReport.targets;
        }
        return entries;
    }

    Transaction& mTx;
    const SettingsContent& mContent;
    SettingsReport mReport;
    std::map<Res, std::unordered_map<std::string, RecordPtr>> mBefore; ///< by name or EID
    std::unordered_map<std::uint32_t, std::uint32_t> mUsers;           ///< index in the file: index here
    std::set<std::pair<Res, std::uint32_t>> mKept;
};

} // namespace

std::string settingsText(const View& view, std::int64_t now) {
    std::string out = "{\"format\":\"" + std::string(kSettingsFormat) +
                      "\",\"version\":" + std::to_string(kSettingsVersion) +
                      ",\"created\":" + std::to_string(now) + ",\n\"eids\":[";
    Places places;
    view.each(Res::Tx, [&](const RecordPtr& tx) {
        if (out.back() != '[') out += ',';
        appendJsonString(out, tx->text("eid"));
        places.emplace(tx->index(), static_cast<std::uint32_t>(places.size()));
        return true;
    });
    out += "],\n\"records\":{";
    for (const SettingsPart& part : kSettingsParts) {
        if (out.back() != '{') out += ",\n";
        appendJsonString(out, resource(part.id).name);
        out += ":[";
        view.each(part.id, [&](const RecordPtr& record) {
            if (out.back() != '[') out += ",\n";
            appendRecord(out, part, *record, places);
            return true;
        });
        out += ']';
    }
    return out + "}}";
}

void checkSettings(std::string_view text, Errors& errors) {
    SettingsContent content;
    readSettings(
        text, content, [](const SettingsPart&, const SettingsRecord&) {}, errors);
}

SettingsReport applySettings(Transaction& tx, std::string_view text, Errors& errors) {
    // A text that is not sound must not be half installed, and the lists come before the records.
    SettingsContent content;
    Installation installation(tx, content);
    readSettings(
        text, content,
        [&](const SettingsPart& part, SettingsRecord given) { installation.add(part, std::move(given)); },
        errors);
    if (errors.empty()) installation.finish();
    return installation.report();
}

} // namespace zeqd
