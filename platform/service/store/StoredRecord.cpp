#include "platform/service/store/StoredRecord.h"

#include "platform/service/catalogue/Catalogue.h"
#include "platform/service/core/JsonPtr.h"
#include "platform/service/record/FieldReader.h"
#include "platform/service/secret/PasswordHash.h"

namespace zeqd {

namespace {

/// What a login goes by. Every account on disk has all of it.
bool soundAccount(const ResourceRow& row, const json_t* json) {
    for (const char* key : {"role", "accountEnable", "allowBlankPassword", "passwordIsInitialized"}) {
        const char* value = json_string_value(json_object_get(json, key));
        const KeyRow& keyRow = row.keys[static_cast<std::size_t>(findKey(row.keys, key))];
        if (!value || findValue(*keyRow.values, value) < 0) return false;
    }
    const char* password = json_string_value(json_object_get(json, "password"));
    return password && (!*password || std::string_view(password).starts_with("$argon2")) &&
           json_is_string(json_object_get(json, "name"));
}

} // namespace

StoredRecord readStored(std::string_view resource, std::int64_t index, std::string_view body) {
    const ResourceRow* row = findResource(resource);
    const JsonPtr json(json_loadb(body.data(), body.size(), 0, nullptr));
    const std::int64_t lowest = row && row->shape == Shape::Table ? 1 : 0;
    if (!row || !row->durable || !json_is_object(json.get()) || index < lowest || index >= kAnyNumber)
        return {};
    Record record(row->id, static_cast<std::uint32_t>(index));
    Errors ignored;
    FieldReader(Writing::Load, ignored).merge(json.get(), record.rows(), record.fields());
    const bool sound = row->id != Res::User || soundAccount(*row, json.get());
    if (!sound) record.setText("password", decoyHash()).choose("passwordIsInitialized", "is_true");
    return {std::make_shared<const Record>(std::move(record)), sound};
}

} // namespace zeqd
