#include "platform/service/demo/Installation.h"

#include "platform/service/catalogue/Catalogue.h"
#include "platform/service/core/JsonPtr.h"
#include "platform/service/record/FieldReader.h"

#include <stdexcept>

namespace zeqd {

namespace {

[[noreturn]] void fail(const std::string& where, const std::string& what) {
    throw std::runtime_error(where + ": " + what);
}

/// Data files tell times as seconds before the present, so that the demo never looks old.
void resolveTimes(json_t* object, std::int64_t now) {
    for (const char* key : {"sessionStartTime", "date"}) {
        const json_t* value = json_object_get(object, key);
        if (json_is_integer(value) && json_integer_value(value) <= 0)
            json_object_set_new(object, key, json_integer(now + json_integer_value(value)));
    }
}

RecordPtr readRecord(const ResourceRow& row, json_t* json, std::int64_t now, const std::string& where) {
    if (!json_is_object(json)) fail(where, "must be an object");
    resolveTimes(json, now);
    const json_int_t index = json_integer_value(json_object_get(json, "index"));
    if (row.shape == Shape::Table && (index < 1 || index > kAnyNumber)) fail(where, "has no index");
    Record record(row.id, static_cast<std::uint32_t>(index));
    Errors errors;
    FieldReader(Writing::Load, errors).merge(json, record.rows(), record.fields());
    if (!errors.empty())
        fail(where, "error " + std::to_string(static_cast<int>(errors[0].number)) + ", " + errors[0].detail);
    return std::make_shared<const Record>(std::move(record));
}

} // namespace

std::vector<RecordPtr> readDataFile(const std::string& path, std::int64_t now) {
    json_error_t error;
    const JsonPtr root(json_load_file(path.c_str(), JSON_REJECT_DUPLICATES, &error));
    if (!json_is_object(root.get())) fail(path, error.text);
    std::vector<RecordPtr> records;
    const char* name;
    json_t* list;
    json_object_foreach(root.get(), name, list) {
        const ResourceRow* row = findResource(name);
        if (!row || !json_is_array(list))
            fail(path, std::string(name) + " is no resource with a list of records");
        for (std::size_t i = 0; i < json_array_size(list); ++i)
            records.push_back(readRecord(*row, json_array_get(list, i), now,
                                         path + ", " + name + " number " + std::to_string(i + 1)));
    }
    return records;
}

} // namespace zeqd
