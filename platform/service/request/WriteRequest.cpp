#include "platform/service/request/WriteRequest.h"

#include "platform/service/catalogue/Catalogue.h"
#include "platform/service/record/FieldReader.h"
#include "platform/service/record/RecordJson.h"
#include "platform/service/rules/Rules.h"

namespace zeqd {

namespace {

/// Record index of a set or delete: from the parameters, or from the query.
std::uint32_t givenIndex(const ZeqRequest& request, Errors& errors) {
    for (const json_t* from : {request.params.get(), request.query.get()}) {
        const json_t* value = json_object_get(from, "index");
        if (!value) continue;
        if (json_is_integer(value) && json_integer_value(value) >= 0 &&
            json_integer_value(value) <= kAnyNumber)
            return static_cast<std::uint32_t>(json_integer_value(value));
        addError(errors, Errno::InvalidParameter, "index must be a whole number");
        return 0;
    }
    return 0;
}

/// An administrator who has no password yet gives the first one under the name alone.
/// Nobody else can be named so.
RecordPtr namedUser(const ZeqRequest& request, Context& context) {
    const json_t* name = json_object_get(request.params.get(), "name");
    if (request.resource->id != Res::User || request.method != Method::Set || !json_is_string(name) ||
        !json_object_get(request.params.get(), "password")) {
        context.fail(Errno::MissingKey, "index");
        return nullptr;
    }
    const RecordPtr user = context.tx.findText(Res::User, "name", json_string_value(name));
    if (!user) context.fail(Errno::NotFound);
    if (user && (!user->is("role", "admin") || user->is("passwordIsInitialized", "is_true")))
        context.fail(Errno::NotAllowed, "service.detail.password");
    return context.errors.empty() ? user : nullptr;
}

RecordPtr existing(const ZeqRequest& request, Context& context) {
    const Res id = request.resource->id;
    if (request.resource->shape == Shape::Singleton) return context.tx.find(id, 0);
    const std::uint32_t index = givenIndex(request, context.errors);
    if (!context.errors.empty()) return nullptr;
    if (index == 0) return namedUser(request, context);
    RecordPtr record = context.tx.find(id, index);
    if (!record) context.fail(Errno::NotFound);
    return record;
}

void replaceSecrets(std::span<const KeyRow> rows, const Fields& before, Fields& after,
                    const Prepared& prepared, Errors& errors) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (sameValue(before[i], after[i])) continue;
        if (rows[i].type == Type::Object) {
            auto inner = std::make_shared<Fields>(after[i].fields());
            replaceSecrets(rows[i].rows(), before[i].fields(), *inner, prepared, errors);
            after[i] = FieldsPtr(std::move(inner));
        } else if (rows[i].secret == Secret::Hashed && rows[i].access != Access::Act &&
                   !after[i].text().empty()) {
            const auto hash = prepared.hashes.find(after[i].text());
            if (hash == prepared.hashes.end() || hash->second.empty()) { // memory has run out
                addError(errors, Errno::General, std::string(rows[i].key));
                after[i] = before[i];
            } else {
                after[i] = hash->second;
            }
        } else if (rows[i].secret == Secret::Masked && after[i].text() == kMask) {
            // What a read shows in its place comes back from whoever writes what was read.
            if (before[i].text().empty()) addError(errors, Errno::InvalidParameter, std::string(rows[i].key));
            after[i] = before[i];
        }
    }
}

void checkUnique(Context& context) {
    const Record& after = *context.after;
    for (const KeyRow& row : after.rows()) {
        if (!row.unique || !context.changes(row.key) || after.text(row.key).empty()) continue;
        const RecordPtr other = context.tx.findText(after.id(), row.key, after.text(row.key));
        if (other && other->index() != after.index())
            context.fail(Errno::NotUnique, "service.detail." + std::string(row.key));
    }
}

/// What the key points to has been removed, mostly while somebody had it on a page.
std::string goneDetail(const KeyRow& row) {
    struct GoneRow {
        std::string_view resource;
        const char* detail;
    };
    constexpr GoneRow kGone[] = {{"rx", "service.detail.no_rx"},
                                 {"tx", "service.detail.no_tx"},
                                 {"user", "service.detail.no_user"},
                                 {"edid", "service.detail.no_edid"},
                                 {"upgrade", "service.detail.no_upgrade"}};
    for (const GoneRow& gone : kGone)
        if (gone.resource == row.refersTo) return gone.detail;
    return std::string(row.key);
}

/// A reference of 0 is none. One that is stored already stays good when its record has gone.
void checkReferences(Context& context) {
    for (const KeyRow& row : context.after->rows()) {
        if (row.refersTo.empty() || row.type != Type::Number) continue;
        const Value& value = context.after->at(row.key);
        if (!value.isSet() || value.number() == 0 || !context.changes(row.key)) continue;
        const Res other = findResource(row.refersTo)->id;
        if (!context.tx.find(other, static_cast<std::uint32_t>(value.number())))
            context.fail(Errno::NotFound, goneDetail(row));
    }
}

/// The same for the entries of lists: an entry that was there before may point to a record that has gone.
void checkListReferences(Context& context) {
    for (const KeyRow& row : context.after->rows()) {
        if (row.type != Type::List || row.rows()[0].refersTo.empty() || !context.changes(row.key)) continue;
        const Res other = findResource(row.rows()[0].refersTo)->id;
        std::set<std::int64_t> known;
        if (context.before)
            for (const Fields& entry : context.before->at(row.key).entries()) known.insert(entry[0].number());
        for (const Fields& entry : context.after->at(row.key).entries())
            if (!known.contains(entry[0].number()) &&
                !context.tx.find(other, static_cast<std::uint32_t>(entry[0].number())))
                return context.fail(Errno::NotFound, goneDetail(row.rows()[0]));
    }
}

void runRule(const ZeqRequest& request, Context& context) {
    const Rule rule = findRule(request.resource->id, request.method);
    if (rule && context.errors.empty()) rule(context);
}

void runSet(const ZeqRequest& request, Context& context) {
    context.before = existing(request, context);
    if (!context.before) return;
    Record after = *context.before;
    context.after = &after;
    FieldReader(Writing::Set, context.errors).merge(request.params.get(), after.rows(), after.fields());
    checkUnique(context);
    checkReferences(context);
    checkListReferences(context);
    if (context.errors.empty())
        replaceSecrets(after.rows(), context.before->fields(), after.fields(), context.prepared,
                       context.errors);
    runRule(request, context);
    for (std::size_t i = 0; i < after.rows().size(); ++i)
        if (after.rows()[i].access == Access::Act) after.fields()[i] = Value{};
    const RecordPtr now = context.tx.find(after.id(), after.index());
    if (context.errors.empty() && now && !sameFields(context.before->fields(), after.fields()))
        context.tx.put(std::move(after));
}

std::uint32_t runCreate(const ZeqRequest& request, Context& context) {
    const ResourceRow& row = *request.resource;
    Record after(row.id, context.tx.nextIndex(row.id));
    context.after = &after;
    FieldReader reader(Writing::Create, context.errors);
    reader.merge(request.params.get(), row.keys, after.fields());
    reader.require(request.params.get(), row.keys);
    if (context.tx.count(row.id) >= row.capacity) context.fail(Errno::Capacity);
    checkUnique(context);
    checkReferences(context);
    checkListReferences(context);
    if (context.errors.empty())
        replaceSecrets(row.keys, *defaultFields(row.keys), after.fields(), context.prepared, context.errors);
    runRule(request, context);
    for (std::size_t i = 0; i < row.keys.size(); ++i)
        if (row.keys[i].access == Access::Act) after.fields()[i] = Value{};
    const std::uint32_t index = after.index();
    if (context.errors.empty()) context.tx.put(std::move(after));
    return index;
}

void runDelete(const ZeqRequest& request, Context& context) {
    context.before = existing(request, context);
    if (!context.before) return;
    runRule(request, context);
    if (context.errors.empty()) context.tx.erase(context.before->id(), context.before->index());
}

void readAction(const ZeqRequest& request, Record& given, Errors& errors) {
    FieldReader reader(Writing::Create, errors);
    reader.merge(request.params.get(), given.rows(), given.fields());
    reader.require(request.params.get(), given.rows());
}

void runAction(const ZeqRequest& request, Context& context) {
    Record given(request.resource->id, 0);
    context.after = &given;
    readAction(request, given, context.errors);
    checkReferences(context);
    context.index = givenIndex(request, context.errors);
    runRule(request, context);
}

void collectSecrets(const json_t* object, std::span<const KeyRow> rows, std::set<std::string>& secrets) {
    for (const KeyRow& row : rows) {
        const json_t* value = json_object_get(object, std::string(row.key).c_str());
        if (!value) continue;
        if (row.type == Type::Object) collectSecrets(value, row.rows(), secrets);
        if (row.secret != Secret::Hashed || row.access == Access::Act || !json_is_string(value)) continue;
        if (json_string_length(value) > 0 && json_string_length(value) <= row.high)
            secrets.insert(json_string_value(value));
    }
}

} // namespace

std::string runWrite(const ZeqRequest& request, Context& context) {
    std::uint32_t created = 0;
    context.params = request.params.get();
    if (request.resource->shape == Shape::Action)
        runAction(request, context);
    else if (request.method == Method::Set)
        runSet(request, context);
    else if (request.method == Method::Create)
        created = runCreate(request, context);
    else
        runDelete(request, context);
    context.after = nullptr;
    if (!context.errors.empty()) return errorText(request.id, context.errors);
    std::string out = "{\"id\":";
    appendJsonNumber(out, request.id);
    out += ",\"rows\":[";
    if (created) {
        out += "{\"index\":";
        appendJsonNumber(out, created);
        for (const auto& [key, value] : context.reply) {
            out += ',';
            appendJsonString(out, key);
            out += ':';
            appendJsonNumber(out, value);
        }
        for (const auto& [key, value] : context.replyTexts) {
            out += ',';
            appendJsonString(out, key);
            out += ':';
            appendJsonString(out, value);
        }
        out += '}';
    }
    out += "]}";
    return out;
}

void checkAction(const ZeqRequest& request, Errors& errors) {
    Record given(request.resource->id, 0);
    readAction(request, given, errors);
    givenIndex(request, errors);
}

std::string answerText(std::int64_t id) {
    std::string out = "{\"id\":";
    appendJsonNumber(out, id);
    return out + ",\"rows\":[]}";
}

std::set<std::string> secretsOf(const ZeqRequest& request) {
    std::set<std::string> secrets;
    if (request.params && request.method != Method::Get)
        collectSecrets(request.params.get(), request.resource->keys, secrets);
    return secrets;
}

void moveChangeStatus(Transaction& tx) {
    std::set<std::uint32_t> moved;
    for (const auto& [key, record] : tx.changes()) {
        const ResourceRow& row = resource(key.first);
        const RecordPtr before = tx.base().find(key.first, key.second);
        if (row.moves == InfoId::None || (!before && !record)) continue;
        for (std::size_t i = 0; i < row.keys.size(); ++i) {
            if (before && record && sameValue(before->fields()[i], record->fields()[i])) continue;
            if (!row.keys[i].change.silent) moved.insert(static_cast<std::uint32_t>(row.moves));
            if (row.keys[i].change.also) moved.insert(row.keys[i].change.also);
        }
    }
    for (const std::uint32_t id : moved) {
        Record next = *tx.find(Res::ChangeStatus, id);
        next.set("lastChange", next.number("lastChange") + 1);
        tx.put(std::move(next));
    }
}

} // namespace zeqd
