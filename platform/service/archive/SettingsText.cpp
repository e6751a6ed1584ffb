#include "platform/service/archive/SettingsText.h"

#include "platform/service/catalogue/Catalogue.h"
#include "platform/service/core/JsonPtr.h"
#include "platform/service/record/FieldReader.h"
#include "platform/service/record/RecordJson.h"

namespace zeqd {

namespace {

constexpr std::string_view kFormat = "zeq-settings";
constexpr int kVersion = 1;

enum class Merging {
    Settings, ///< the one record takes over what clients may write
    Replace,  ///< the table becomes that of the file
    ByEid,    ///< records with the same EID take over what clients may write
};
struct PartRow {
    Res id;
    Merging merging;
};
constexpr PartRow kParts[] = {
    {Res::SystemGlobals, Merging::Settings},
    {Res::CfgDefaults, Merging::Settings},
    {Res::EventLogControl, Merging::Settings},
    {Res::AlertLogControl, Merging::Settings},
    {Res::User, Merging::Replace},
    {Res::Edid, Merging::Replace},
    {Res::Swx, Merging::ByEid},
    {Res::Rx, Merging::ByEid},
    {Res::Tx, Merging::ByEid},
};

/// Copies what clients may write; an update source is no setting.
void takeOver(const Record& from, Record& to) {
    for (std::size_t i = 0; i < to.rows().size(); ++i)
        if (to.rows()[i].access == Access::Write && to.rows()[i].key != "upgradeIndex")
            to.fields()[i] = from.fields()[i];
}

void eraseAll(Transaction& tx, Res id) {
    std::vector<std::uint32_t> indexes;
    tx.each(id, [&](const RecordPtr& record) {
        indexes.push_back(record->index());
        return true;
    });
    for (const std::uint32_t index : indexes) tx.erase(id, index);
}

void applyRecord(Transaction& tx, const PartRow& part, const Record& given) {
    if (part.merging == Merging::Replace) return tx.put(given);
    const RecordPtr stored = part.merging == Merging::Settings
                                 ? tx.find(part.id, 0)
                                 : tx.findText(part.id, "eid", given.text("eid"));
    if (!stored) return;
    Record next = *stored;
    takeOver(given, next);
    tx.put(std::move(next));
}

void applyPart(Transaction& tx, const PartRow& part, const json_t* list, Errors& errors) {
    const ResourceRow& row = resource(part.id);
    if (!json_is_array(list) || json_array_size(list) > row.capacity)
        return addError(errors, Errno::BadContent, std::string(row.name));
    if (part.merging == Merging::Replace) eraseAll(tx, part.id);
    for (std::size_t i = 0; i < json_array_size(list) && errors.empty(); ++i) {
        const json_t* item = json_array_get(list, i);
        const json_int_t index = json_integer_value(json_object_get(item, "index"));
        if (!json_is_object(item) || index < 0 || index > kAnyNumber - 1 ||
            (part.merging == Merging::Replace &&
             (index == 0 || tx.find(part.id, static_cast<std::uint32_t>(index)))))
            return addError(errors, Errno::BadContent, std::string(row.name));
        Record given(part.id, static_cast<std::uint32_t>(index));
        FieldReader(Writing::Load, errors).merge(item, given.rows(), given.fields());
        if (errors.empty()) applyRecord(tx, part, given);
    }
}

bool administratorLeft(const View& view) {
    return view.findIf(Res::User, [](const Record& user) {
        return user.is("role", "admin") && user.enabled("accountEnable");
    }) != nullptr;
}

} // namespace

std::string settingsText(const View& view, std::int64_t now) {
    std::string out = "{\"format\":\"" + std::string(kFormat) + "\",\"version\":" + std::to_string(kVersion) +
                      ",\"created\":" + std::to_string(now) + ",\"records\":{";
    for (const PartRow& part : kParts) {
        if (out.back() != '{') out += ",\n";
        appendJsonString(out, resource(part.id).name);
        out += ":[";
        view.each(part.id, [&](const RecordPtr& record) {
            if (out.back() != '[') out += ",\n";
            out += "{\"index\":" + std::to_string(record->index());
            appendFields(out, record->rows(), record->fields(), Audience::Disk, false);
            out += '}';
            return true;
        });
        out += ']';
    }
    return out + "}}";
}

void applySettings(Transaction& tx, std::string_view text, Errors& errors) {
    const JsonPtr root(json_loadb(text.data(), text.size(), JSON_REJECT_DUPLICATES, nullptr));
    const json_t* format = json_object_get(root.get(), "format");
    const json_t* records = json_object_get(root.get(), "records");
    if (!json_is_string(format) || json_string_value(format) != kFormat || !json_is_object(records))
        return addError(errors, Errno::BadContent, "service.detail.settings_foreign");
    if (json_integer_value(json_object_get(root.get(), "version")) != kVersion)
        return addError(errors, Errno::BadContent, "service.detail.settings_version");
    for (const PartRow& part : kParts)
        if (errors.empty())
            applyPart(tx, part, json_object_get(records, std::string(resource(part.id).name).c_str()),
                      errors);
    if (errors.empty() && !administratorLeft(tx))
        addError(errors, Errno::BadContent, "service.detail.last_administrator");
}

} // namespace zeqd
