#include "platform/service/request/Describe.h"

#include "platform/service/catalogue/Catalogue.h"
#include "platform/service/record/Forms.h"
#include "platform/service/record/RecordJson.h"

namespace zeqd {

namespace {

struct MethodText {
    Method method;
    std::string_view name;
};
constexpr MethodText kMethods[] = {
    {Method::Get, "get"}, {Method::Set, "set"}, {Method::Create, "create"}, {Method::Delete, "delete"}};

template <class E>
struct Word {
    E value;
    std::string_view is;
};
constexpr Word<Shape> kShapes[] = {{Shape::Table, "table"},
                                   {Shape::Singleton, "singleton"},
                                   {Shape::Action, "action"},
                                   {Shape::Computed, "computed"}};
constexpr Word<Type> kTypes[] = {{Type::Text, "text"},     {Type::Number, "number"}, {Type::Choice, "choice"},
                                 {Type::Binary, "binary"}, {Type::Object, "object"}, {Type::List, "list"}};
constexpr Word<Access> kAccess[] = {{Access::Write, "read and write"},
                                    {Access::Create, "given at creation"},
                                    {Access::Read, "read only"},
                                    {Access::Act, "action"},
                                    {Access::Internal, "internal"}};

/// Of a table that is indexed by its values: row i is that of the value i, up to the last one.
template <class E, std::size_t N>
constexpr bool coversInOrder(const Word<E> (&words)[N], E last) {
    for (std::size_t i = 0; i < N; ++i)
        if (static_cast<std::size_t>(words[i].value) != i) return false;
    return N == static_cast<std::size_t>(last) + 1;
}
static_assert(coversInOrder(kShapes, Shape::Computed));
static_assert(coversInOrder(kTypes, Type::List));
static_assert(coversInOrder(kAccess, Access::Internal));

std::string_view typeName(const KeyRow& row) {
    return kTypes[static_cast<std::size_t>(row.type)].is;
}
std::string_view accessName(const KeyRow& row) {
    return kAccess[static_cast<std::size_t>(row.access)].is;
}

std::string valuesText(const ValueList& list, std::string_view separator) {
    std::string out;
    for (const std::string_view value : list.values) {
        if (!out.empty()) out += separator;
        out += value;
    }
    return out;
}

/// What a value must be, in one phrase.
std::string limits(const KeyRow& row) {
    const std::string low = std::to_string(row.low);
    const std::string high = std::to_string(row.high);
    switch (row.type) {
    case Type::Text:
        return "at most " + high + " characters, " + std::string(formText(row.form));
    case Type::Number:
        return low + " to " + high;
    case Type::Choice:
        return valuesText(*row.values, ", ");
    case Type::Binary:
        return low == high ? low + " bytes" : low + " to " + high + " bytes";
    case Type::List:
        return "at most " + high + " entries";
    case Type::Object:
        return {};
    }
    return {};
}

std::string remarks(const KeyRow& row) {
    std::string out(row.help);
    if (row.required) out += "; required";
    if (row.unique) out += "; unique";
    if (row.secret == Secret::Hashed) out += "; kept as a slow hash, reads as an empty text";
    if (row.secret == Secret::Masked) out += "; reads as stars";
    if (!row.refersTo.empty()) out += "; index of \"" + std::string(row.refersTo) + "\"";
    if (row.optional) out += "; absent until known";
    return out;
}

void appendTable(std::string& out, std::span<const KeyRow> rows, const std::string& path) {
    for (const KeyRow& row : rows) {
        if (row.access == Access::Internal) continue;
        const std::string name = path + std::string(row.key);
        out += "| `" + name + "` | " + std::string(typeName(row)) + " | " + std::string(accessName(row)) +
               " | " + limits(row) + " | " + std::string(row.fallback) + " | " + remarks(row) + " |\n";
        appendTable(out, row.rows(), name + "/");
    }
}

void appendPair(std::string& out, std::string_view key, std::string_view value) {
    if (value.empty()) return;
    out += ',';
    appendJsonString(out, key);
    out += ':';
    appendJsonString(out, value);
}

std::string_view accessWord(const KeyRow& row) {
    if (row.access == Access::Read) return "read";
    return row.access == Access::Act ? "write" : "read/write";
}

bool appendKeyRows(std::string& out, std::string_view resource, std::span<const KeyRow> rows,
                   const std::string& path, bool first) {
    for (const KeyRow& row : rows) {
        if (row.access == Access::Internal) continue;
        const std::string name = path + std::string(row.key);
        out += first ? "{\"resource\":" : ",{\"resource\":";
        first = false;
        appendJsonString(out, resource);
        appendPair(out, "key", name);
        appendPair(out, "type", typeName(row));
        if (row.type == Type::Choice) {
            out += ",\"values\":[";
            for (const std::string_view value : row.values->values) {
                if (out.back() != '[') out += ',';
                appendJsonString(out, value);
            }
            out += ']';
        } else {
            appendPair(out, "limit", limits(row));
        }
        appendPair(out, "default", row.fallback);
        appendPair(out, "access", accessWord(row));
        out += row.secret == Secret::No ? ",\"secret\":false" : ",\"secret\":true";
        appendPair(out, "note", remarks(row));
        out += '}';
        first = appendKeyRows(out, resource, row.rows(), name + "/", first);
    }
    return first;
}

} // namespace

bool appendDescription(std::string& out, const ResourceRow& row, bool first) {
    out += first ? "{\"resource\":" : ",{\"resource\":";
    appendJsonString(out, row.name);
    out += ",\"methods\":[";
    for (const MethodText& method : kMethods) {
        if (!row.allows(method.method)) continue;
        if (out.back() != '[') out += ',';
        appendJsonString(out, method.name);
    }
    out += ']';
    appendPair(out, "shape", kShapes[static_cast<std::size_t>(row.shape)].is);
    appendPair(out, "note", row.help);
    out += '}';
    return appendKeyRows(out, row.name, row.keys, {}, false);
}

std::string resourcesPage() {
    std::string out = R"(# Resources

Made by `zeqd --describe-resources` from the catalogue; a test holds this page against it. How requests
and answers travel stands in [zeq-protocol.md](zeq-protocol.md). A name with slashes is nested: it may be
written inside its object, or by a request on the path, as in `swx/network/ipv4`.
)";
    for (const ResourceRow& row : catalogue()) {
        if (row.methods == 0) continue;
        out += "\n## " + std::string(row.name) + "\n\n" + std::string(row.help) + ". Methods:";
        for (const MethodText& method : kMethods)
            if (row.allows(method.method)) out += " " + std::string(method.name);
        out += '.';
        if (row.shape == Shape::Singleton) out += " One record, no index.";
        if (row.shape == Shape::Table) out += " At most " + std::to_string(row.capacity) + " records.";
        if (row.shape == Shape::Table && !row.durable) out += " Not kept over a restart.";
        if (row.moves != InfoId::None)
            out += " Changes move `changeStatus` " + std::to_string(static_cast<int>(row.moves)) + ".";
        out += '\n';
        if (row.keys.empty()) continue;
        out += "\n| key | type | who writes | limits | default | |\n|---|---|---|---|---|---|\n";
        appendTable(out, row.keys, {});
    }
    return out;
}

} // namespace zeqd
