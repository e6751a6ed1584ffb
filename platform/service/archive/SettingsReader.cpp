#include "platform/service/archive/SettingsReader.h"

#include "platform/service/archive/SettingsScan.h"
#include "platform/service/catalogue/Catalogue.h"
#include "platform/service/catalogue/UserRows.h"
#include "platform/service/core/JsonPtr.h"
#include "platform/service/record/FieldReader.h"
#include "platform/service/record/Forms.h"
#include "platform/service/secret/PasswordHash.h"

#include <charconv>
#include <set>
#include <unordered_map>
#include <utility>

namespace zeqd {

namespace {

/// Bytes and values of one record. A user of version 1 with every target has 20,000 small objects.
constexpr std::size_t kMaxItem = 1U << 20;
constexpr std::size_t kMaxItemValues = 60'000;
constexpr std::size_t kMaxEids = 20'000;

/// Hashes come in as they are: only such as this service makes, so that a file cannot bring one that everybody's
/// password meets, or that takes a minute to compute.
bool knownHashes(std::span<const KeyRow> rows, const Fields& fields) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows[i].type == Type::Object && !knownHashes(rows[i].rows(), fields[i].fields())) return false;
        if (rows[i].secret == Secret::Hashed && fields[i].isSet() && !fields[i].text().empty() &&
            !isKnownHash(fields[i].text()))
            return false;
    }
    return true;
}

/// "0-17,20": numbers below `end`, ranges upwards, at most `most` in all.
bool readPlaces(const json_t* json, std::size_t end, std::size_t most, std::vector<std::uint32_t>& places) {
    if (!json) return true;
    if (!json_is_string(json)) return false;
    std::string_view text(json_string_value(json), json_string_length(json));
    while (!text.empty()) {
        std::uint32_t ends[2];
        int count = 0;
        do {
            if (count == 2) return false;
            if (count) text.remove_prefix(1);
            const auto number = std::from_chars(text.data(), text.data() + text.size(), ends[count++]);
            if (number.ec != std::errc{}) return false;
            text.remove_prefix(static_cast<std::size_t>(number.ptr - text.data()));
        } while (!text.empty() && text.front() == '-');
        const std::uint32_t last = ends[count - 1];
        if (ends[0] > last || last >= end || places.size() + (last - ends[0]) >= most) return false;
        for (std::uint32_t place = ends[0]; place <= last; ++place) places.push_back(place);
        if (text.empty()) return true;
        if (text.front() != ',' || text.size() == 1) return false;
        text.remove_prefix(1);
    }
    return true;
}

class Reading {
public:
    Reading(SettingsContent& content, const std::function<void(const SettingsPart&, SettingsRecord)>& visit,
            Errors& errors)
        : mContent(content), mVisit(visit), mErrors(errors) {}

    void run(std::string_view text) {
        if (!readHead(text)) return fail("service.detail.settings_foreign");
        if (mVersion != kSettingsVersion && mVersion != 1) return fail("service.detail.settings_version");
        if (!(mVersion == 1 ? readEidsOfTransmitters() : readEids()))
            return fail(mVersion == 1 ? "tx" : "eids");
        for (const SettingsPart& part : kSettingsParts) {
            if (!readPart(part) && mErrors.empty()) fail(std::string(resource(part.id).name));
            if (!mErrors.empty()) return;
        }
        if (!mAdministrator) fail("service.detail.last_administrator");
    }

private:
    void fail(std::string detail) { addError(mErrors, Errno::BadContent, std::move(detail)); }

    bool readHead(std::string_view text) {
        bool format = false;
        bool records = false;
        const bool sound = eachMember(text, [&](std::string_view key, std::string_view value) {
            if (key == "format") return format = value == '"' + std::string(kSettingsFormat) + '"';
            if (key == "version")
                return std::from_chars(value.data(), value.data() + value.size(), mVersion).ec == std::errc{};
            if (key == "eids") return std::exchange(mEids, value).empty();
            if (key != "records") return true;
            if (std::exchange(records, true)) return false;
            return eachMember(value, [&](std::string_view name, std::string_view list) {
                return mLists.emplace(name, list).second;
            });
        });
        return sound && format && records;
    }

    bool readEids() {
        return eachItem(mEids, [&](std::string_view item) {
            const std::string_view eid = item.size() > 2 ? item.substr(1, item.size() - 2) : "";
            mContent.eids.emplace_back(eid);
            return !eid.empty() && hasForm(Form::Eid, eid) && mContent.eids.size() <= kMaxEids;
        });
    }

    bool readEidsOfTransmitters() {
        return eachItem(mLists["tx"], [&](std::string_view item) {
            const JsonPtr json = parse(item);
            const char* eid = json_string_value(json_object_get(json.get(), "eid"));
            const json_int_t index = json_integer_value(json_object_get(json.get(), "index"));
            if (eid && *eid && hasForm(Form::Eid, eid) &&
                mPlaces.emplace(index, static_cast<std::uint32_t>(mContent.eids.size())).second)
                mContent.eids.emplace_back(eid);
            return json && mContent.eids.size() <= kMaxEids;
        });
    }

    JsonPtr parse(std::string_view item) const {
        if (item.size() > kMaxItem || countValues(item) > kMaxItemValues) return nullptr;
        JsonPtr json(json_loadb(item.data(), item.size(), JSON_REJECT_DUPLICATES, nullptr));
        return json_is_object(json.get()) ? std::move(json) : nullptr;
    }

    bool readPart(const SettingsPart& part) {
        mKnown.clear();
        mIndexes.clear();
        std::size_t count = 0;
        return eachItem(mLists[std::string(resource(part.id).name)], [&](std::string_view item) {
            return ++count <= resource(part.id).capacity && readRecord(part, item);
        });
    }

    bool readRecord(const SettingsPart& part, std::string_view item) {
        const JsonPtr json = parse(item);
        const json_int_t index = json_integer_value(json_object_get(json.get(), "index"));
        if (!json || index < 0 || index > kAnyNumber) return false;
        SettingsRecord given{Record(part.id, static_cast<std::uint32_t>(index))};
        if (part.id == Res::User && !readTargets(json.get(), given)) return false;
        FieldReader(Writing::Load, mErrors).merge(json.get(), given.record.rows(), given.record.fields());
        if (!mErrors.empty() || !knownHashes(given.record.rows(), given.record.fields())) return false;
        if (!isNew(part, given.record)) return false;
        mAdministrator = mAdministrator || (part.id == Res::User && given.record.is("role", "admin") &&
                                            given.record.enabled("accountEnable"));
        mVisit(part, std::move(given));
        return true;
    }

    /// No two records of one number or name.
    bool isNew(const SettingsPart& part, const Record& record) {
        if (part.merging == Merging::Settings) return mKnown.insert("").second;
        const bool byEid = part.merging == Merging::ByEid;
        std::string name = record.text(byEid ? "eid" : "name");
        if (name.empty() && part.id == Res::User) name = " " + record.text("mgrName");
        if (name.empty() || name == " " || !mKnown.insert(std::move(name)).second) return false;
        return byEid || (record.index() != 0 && mIndexes.insert(record.index()).second);
    }

    /// Takes the lists out of the object.
    bool readTargets(json_t* json, SettingsRecord& given) {
        if (mVersion == 1) {
            takeNumbers(json, "target", given.targets);
            takeNumbers(json, "favorite", given.favorites);
            return given.targets.size() <= rows::kMaxTargets && given.favorites.size() <= rows::kMaxFavorites;
        }
        const std::size_t end = mContent.eids.size();
        const bool sound =
            readPlaces(json_object_get(json, kTargetsKey), end, rows::kMaxTargets, given.targets) &&
            readPlaces(json_object_get(json, kFavoritesKey), end, rows::kMaxFavorites, given.favorites) &&
            !json_object_get(json, "target") && !json_object_get(json, "favorite");
        json_object_del(json, kTargetsKey);
        json_object_del(json, kFavoritesKey);
        return sound;
    }

    void takeNumbers(json_t* json, const char* key, std::vector<std::uint32_t>& places) {
        const json_t* list = json_object_get(json, key);
        for (std::size_t i = 0; i < json_array_size(list); ++i) {
            const auto found =
                mPlaces.find(json_integer_value(json_object_get(json_array_get(list, i), "txIndex")));
            if (found == mPlaces.end())
                ++mContent.unknown;
            else
                places.push_back(found->second);
        }
        json_object_del(json, key);
    }

    SettingsContent& mContent;
    const std::function<void(const SettingsPart&, SettingsRecord)>& mVisit;
    Errors& mErrors;
    int mVersion = 0;
    std::string_view mEids;
    std::unordered_map<std::string, std::string_view> mLists; ///< of records, by their resource
    std::unordered_map<json_int_t, std::uint32_t> mPlaces;    ///< version 1: of the file's Transmitters
    std::set<std::string> mKnown;                             ///< names or EIDs of the part so far
    std::set<std::uint32_t> mIndexes;
    bool mAdministrator = false;
};

} // namespace

void readSettings(std::string_view text, SettingsContent& content,
                  const std::function<void(const SettingsPart&, SettingsRecord)>& visit, Errors& errors) {
    Reading(content, visit, errors).run(text);
}

} // namespace zeqd
