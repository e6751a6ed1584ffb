#include "platform/ctl/ReadCommands.h"

#include "platform/client/ZeqObj.h"
#include "platform/ctl/Assign.h"
#include "platform/ctl/Print.h"

#include <algorithm>

namespace zeqctl {

namespace {

/// Columns of list, in this order, as far as the resource has them.
constexpr const char* kListKeys[] = {"index",
                                     "eid",
                                     "name",
                                     "fullName",
                                     "role",
                                     "mode",
                                     "rxIndex",
                                     "rxEid",
                                     "txIndex",
                                     "txEid",
                                     "userIndex",
                                     "username",
                                     "swxIndex",
                                     "status",
                                     "usage",
                                     "upgradeStatus",
                                     "firmwareVersion",
                                     "location",
                                     "isProtected",
                                     "protocol",
                                     "filename",
                                     "version",
                                     "date",
                                     "severity",
                                     "originatorEid",
                                     "alertMsg",
                                     "sessionStartTime",
                                     "lastChange"};

std::vector<std::string> listKeys(RemoteService& service, const std::string& resource) {
    const ResourceInfo info = readCatalogue(service, resource);
    const bool indexed = info.shape != "singleton" && resource == info.name;
    std::vector<std::string> keys;
    if (indexed) {
        keys.emplace_back("index");
        for (const char* key : kListKeys) {
            if (!info.typeOf(key).empty()) keys.emplace_back(key);
        }
    }
    if (keys.size() > 1) return keys;
    for (const KeyInfo& key : info.keys) {
        if (key.type != "object" && key.type != "list" && key.key.find('/') == key.key.npos)
            keys.push_back(key.key);
    }
    return keys;
}

void printRowsAsTable(std::ostream& out, const json_t* rows, const std::vector<std::string>& keys) {
    std::vector<std::vector<std::string>> cells;
    for (std::size_t i = 0; i < json_array_size(rows); ++i) {
        std::vector<std::string>& row = cells.emplace_back();
        for (const std::string& key : keys)
            row.push_back(valueText(valueAt(json_array_get(rows, i), key), key));
    }
    printTable(out, keys, cells);
}

} // namespace

std::vector<std::string> ReadWords::select() const {
    std::vector<std::string> out;
    for (const std::string& key : keys) {
        const std::string first = key.substr(0, key.find('/'));
        if (std::find(out.begin(), out.end(), first) == out.end()) out.push_back(first);
    }
    return out;
}

std::string takeResource(const Context& context, std::vector<std::string>& rest) {
    if (context.words.empty()) {
        throw Failure(Exit::Usage, "a resource is missing; zeqctl describe lists them");
    }
    rest.assign(context.words.begin() + 1, context.words.end());
    return context.words.front();
}

ReadWords parseReadWords(const Context& context) {
    ReadWords out;
    out.query.reset(ZeqObj_new());
    std::vector<std::string> rest;
    out.resource = takeResource(context, rest);
    for (std::size_t i = 0; i < rest.size(); ++i) {
        if (JsonPtr indexes = i == 0 ? parseIndexes(rest[i]) : nullptr) {
            out.singleRecord = json_is_integer(indexes.get());
            ZeqObj_setObject(out.query.get(), "index", indexes.release());
        } else if (rest[i].find('=') != std::string::npos) {
            addCondition(out.query.get(), rest[i]);
        } else {
            out.keys.push_back(rest[i]);
        }
    }
    return out;
}

void runGet(Context& context) {
    const ReadWords words = parseReadWords(context);
    const JsonPtr rows = context.service.get(words.resource, words.query.get(), words.select());
    const std::size_t count = json_array_size(rows.get());
    const json_t* first = json_array_get(rows.get(), 0);
    if (count == 1 && words.keys.size() == 1) {
        const std::string& key = words.keys.front();
        const json_t* value = valueAt(first, key);
        if (context.options.json && value) {
            const JsonPtr shown(isSecret(key) ? json_string("********")
                                              : json_incref(const_cast<json_t*>(value)));
            printJson(context.out, shown.get());
        } else {
            context.out << (context.options.json ? "null" : bareText(value, key)) << '\n';
        }
    } else if (context.options.json) {
        printJson(context.out, words.singleRecord && count == 1 ? first : rows.get());
    } else if (count > 1 && !words.keys.empty()) {
        printRowsAsTable(context.out, rows.get(), words.keys);
    } else {
        for (std::size_t i = 0; i < count; ++i) {
            if (i > 0) context.out << '\n';
            printRecord(context.out, json_array_get(rows.get(), i));
        }
    }
}

void runList(Context& context) {
    ReadWords words = parseReadWords(context);
    const bool whole = words.keys.empty();
    if (whole) words.keys = listKeys(context.service, words.resource);
    JsonPtr rows;
    try {
        rows = context.service.get(words.resource, words.query.get(), words.select());
    } catch (const Refusal& refusal) {
        if (!refusal.noEntries()) throw;
        rows.reset(json_array());
    }
    if (context.options.json) {
        printJson(context.out, rows.get());
    } else if (json_array_size(rows.get()) == 0) {
        context.err << "no entries\n";
    } else if (whole && !json_object_get(json_array_get(rows.get(), 0), "index")) {
        printRecord(context.out,
                    json_array_get(rows.get(), 0)); // a singleton would be a table of one endless line
    } else {
        printRowsAsTable(context.out, rows.get(), words.keys);
    }
}

} // namespace zeqctl
