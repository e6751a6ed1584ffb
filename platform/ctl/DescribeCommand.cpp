#include "platform/ctl/Command.h"
#include "platform/ctl/Print.h"
#include "platform/ctl/RemoteCatalogue.h"

namespace zeqctl {

namespace {

void describeAll(Context& context) {
    std::vector<std::vector<std::string>> rows;
    for (const ResourceInfo& info : readCatalogue(context.service)) {
        rows.push_back({info.name, joined(info.methods), info.note});
    }
    printTable(context.out, {"RESOURCE", "METHODS", "WHAT IT IS"}, rows);
}

void describeOne(Context& context, const std::string& resource) {
    const ResourceInfo info = readCatalogue(context.service, resource);
    std::vector<std::vector<std::string>> rows;
    for (const KeyInfo& key : info.keys) {
        rows.push_back({key.key, key.type, key.access, key.limit, key.fallback, key.note});
    }
    if (rows.empty() && resource != info.name) throw Failure(Exit::Refused, resource + " has no keys");
    context.out << resource << ": " << info.note << "\nmethods: " << joined(info.methods)
                << (info.shape == "singleton" ? "; one record, no index" : "") << "\n\n";
    printTable(context.out, {"KEY", "TYPE", "ACCESS", "LIMIT", "DEFAULT", "WHAT IT IS"}, rows);
}

} // namespace

void runDescribe(Context& context) {
    if (context.words.size() > 1) throw Failure(Exit::Usage, "one resource at a time");
    if (context.options.json) {
        const JsonPtr query(context.words.empty() ? nullptr
                                                  : json_pack("{s:s}", "resource", context.words[0].c_str()));
        printJson(context.out, context.service.get("zeqCatalogue", query.get(), {}).get());
    } else if (context.words.empty()) {
        describeAll(context);
    } else {
        describeOne(context, context.words.front());
    }
}

} // namespace zeqctl
