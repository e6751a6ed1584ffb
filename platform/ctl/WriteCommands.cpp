#include "platform/client/ZeqObj.h"
#include "platform/ctl/Assign.h"
#include "platform/ctl/ReadCommands.h"

#include <utility>

namespace zeqctl {

namespace {

/// The catalogue's word on the resource. Without one all values are texts, and the service says what it
/// thinks of them.
ResourceInfo infoOf(RemoteService& service, const std::string& resource) {
    try {
        return readCatalogue(service, resource);
    } catch (const Refusal&) {
        return {};
    }
}

JsonPtr assignAll(Context& context, const std::string& resource, std::span<const std::string> words) {
    if (words.empty()) throw Failure(Exit::Usage, "nothing to write; give KEY=VALUE");
    JsonPtr params(ZeqObj_new());
    const ResourceInfo info = infoOf(context.service, resource);
    for (const std::string& word : words) assign(params.get(), word, info, context.in);
    return params;
}

/// The indexes of a word such as "3" or "3,4", as an array; null when it is none.
JsonPtr indexList(const std::string& word) {
    JsonPtr indexes = parseIndexes(word);
    if (!json_is_integer(indexes.get())) return indexes;
    return JsonPtr(json_pack("[o]", indexes.release()));
}

/// Writes one record after the other; the first refusal ends it and says which record it was.
/// A null list is a singleton.
void writeEach(RemoteService& service, const char* method, const std::string& resource, json_t* params,
               const json_t* indexes) {
    if (!indexes) service.write(method, resource, params);
    for (std::size_t i = 0; i < json_array_size(indexes); ++i) {
        json_t* index = json_array_get(indexes, i);
        ZeqObj_setObject(params, "index", json_incref(index));
        try {
            service.write(method, resource, params);
        } catch (const Refusal& refusal) {
            if (json_array_size(indexes) == 1) throw;
            throw Failure(Exit::Refused,
                          resource + " " + std::to_string(json_integer_value(index)) + ": " + refusal.what());
        }
    }
}

/// Index of the first record that fits, 0 = there is none.
int firstIndex(RemoteService& service, const char* resource, const JsonPtr& query) {
    if (!query) throw Failure(Exit::Usage, "the name is not UTF-8");
    try {
        const JsonPtr rows = service.get(resource, query.get(), {"index"});
        return static_cast<int>(json_integer_value(json_object_get(json_array_get(rows.get(), 0), "index")));
    } catch (const Refusal& refusal) {
        if (!refusal.noEntries()) throw;
        return 0;
    }
}

/// Index of the first record that has the word in one of the keys.
int indexOf(RemoteService& service, const char* resource, std::initializer_list<const char*> keys,
            const std::string& word) {
    for (const char* key : keys) {
        const JsonPtr query(json_pack("{s:s}", key, word.c_str()));
        if (const int index = firstIndex(service, resource, query)) return index;
    }
    throw Failure(Exit::Refused, std::string("no ") + resource + " is named " + word);
}

int receiverOf(RemoteService& service, const std::string& word) {
    return indexOf(service, "rx", {"name", "eid"}, word);
}

} // namespace

void runSet(Context& context) {
    std::vector<std::string> words;
    const std::string resource = takeResource(context, words);
    const JsonPtr indexes = words.empty() ? nullptr : indexList(words.front());
    const JsonPtr params =
        assignAll(context, resource, std::span<const std::string>(words).subspan(indexes ? 1 : 0));
    writeEach(context.service, "set", resource, params.get(), indexes.get());
}

void runCreate(Context& context) {
    std::vector<std::string> words;
    const std::string resource = takeResource(context, words);
    const JsonPtr params = assignAll(context, resource, words);
    const JsonPtr rows = context.service.write("create", resource, params.get());
    context.out << json_integer_value(json_object_get(json_array_get(rows.get(), 0), "index")) << '\n';
}

void runDelete(Context& context) {
    std::vector<std::string> words;
    const std::string resource = takeResource(context, words);
    const JsonPtr indexes = words.size() == 1 ? indexList(words.front()) : nullptr;
    if (!indexes) throw Failure(Exit::Usage, "which records? give INDEX or INDEX,INDEX");
    const JsonPtr params(ZeqObj_new());
    writeEach(context.service, "delete", resource, params.get(), indexes.get());
}

void runLogin(Context& context) {
    if (context.words.size() != 2) throw Failure(Exit::Usage, "use login USER RECEIVER");
    const int user = indexOf(context.service, "user", {"name"}, context.words[0]);
    const int rx = receiverOf(context.service, context.words[1]);
    const JsonPtr params(json_pack("{s:i, s:i}", "userIndex", user, "rxIndex", rx));
    context.service.write("create", "userSession", params.get());
}

void runLogout(Context& context) {
    if (context.words.size() != 1) throw Failure(Exit::Usage, "use logout RECEIVER");
    const JsonPtr query(json_pack("{s:i}", "rxIndex", receiverOf(context.service, context.words[0])));
    const int login = firstIndex(context.service, "userSession", query);
    if (login == 0) throw Failure(Exit::Refused, "nobody is logged in there");
    const JsonPtr params(json_pack("{s:i}", "index", login));
    context.service.write("delete", "userSession", params.get());
}

void runDevice(Context& context) {
    const bool known =
        context.words.size() == 2 && (context.words[0] == "offline" || context.words[0] == "online");
    if (!known) throw Failure(Exit::Usage, "use device offline EID or device online EID");
    const JsonPtr params(
        json_pack("{s:s, s:s}", "action", context.words[0].c_str(), "eid", context.words[1].c_str()));
    if (!params) throw Failure(Exit::Usage, "the EID is not UTF-8");
    context.service.write("set", "simControl", params.get());
}

void runCascade(Context& context) {
    constexpr std::pair<const char*, const char*> kWords[] = {
        {"look", "look"}, {"down", "link_down"}, {"up", "link_up"}};
    const std::size_t count = context.words.size();
    const JsonPtr params(ZeqObj_new());
    for (const auto& [word, action] : kWords)
        if ((count == 1 || count == 2) && context.words[0] == word)
            ZeqObj_setString(params.get(), "action", action);
    if (json_object_size(params.get()) == 0)
        throw Failure(Exit::Usage,
                      "use cascade look, cascade down or cascade up, with the EID of a Switch or without");
    if (count == 2) ZeqObj_setString(params.get(), "eid", context.words[1].c_str());
    context.service.write("set", "simControl", params.get());
}

void runManager(Context& context) {
    struct Word {
        const char* word;
        const char* resource;
        const char* key;
        const char* value;
        bool address; // a second word
    };
    constexpr Word kWords[] = {{"enrol", "systemGlobals", "managedSetting", "enrolling", true},
                               {"leave", "systemGlobals", "managedSetting", "unenrolling", false},
                               {"down", "simControl", "action", "manager_down", false},
                               {"up", "simControl", "action", "manager_up", false}};
    for (const Word& row : kWords) {
        if (context.words.empty() || context.words[0] != row.word) continue;
        if (context.words.size() > (row.address ? 2U : 1U)) break;
        const JsonPtr params(json_pack("{s:s}", row.key, row.value));
        if (context.words.size() == 2)
            ZeqObj_setString(params.get(), "managerIpAddress", context.words[1].c_str());
        context.service.write("set", row.resource, params.get());
        return;
    }
    throw Failure(Exit::Usage, "use manager enrol ADDRESS, manager leave, manager down or manager up");
}

void runAlert(Context& context) {
    const std::size_t count = context.words.size();
    if (count != 1 && count != 2)
        throw Failure(Exit::Usage, "use alert KIND, with a text in quotes or without");
    const JsonPtr params(json_pack("{s:s}", "action", "alert"));
    ZeqObj_setString(params.get(), "key", context.words[0].c_str());
    if (count == 2) ZeqObj_setString(params.get(), "message", context.words[1].c_str());
    context.service.write("set", "simControl", params.get());
}

void runTime(Context& context) {
    const JsonPtr factor =
        context.words.size() == 2 && context.words[0] == "faster" ? parseIndexes(context.words[1]) : nullptr;
    if (!json_is_integer(factor.get()))
        throw Failure(Exit::Usage, "use time faster N, a whole number from 1");
    const JsonPtr params(json_pack("{s:s, s:O}", "action", "time", "factor", factor.get()));
    context.service.write("set", "simControl", params.get());
}

} // namespace zeqctl
