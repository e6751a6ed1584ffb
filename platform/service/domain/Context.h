// What a rule sees of the request that it judges.
#pragma once

#include "platform/service/catalogue/ResourceRow.h"
#include "platform/service/core/Errors.h"
#include "platform/service/domain/Alerts.h"

#include <jansson.h>
#include <map>

namespace zeqd {

using ClientId = std::uint64_t;

/// An event that is raised because a request was refused, when the request's own changes are dropped.
struct FailureAlert {
    const AlertKind* kind = nullptr;
    std::string message;
};

/// What came of making or reading a settings file.
struct SettingsResult {
    Errno error = {};
    std::string detail;
    std::string text; ///< of a file that was read: its settings, packed without a password
};

/// What was worked out off the event loop before the request was run.
struct Prepared {
    std::map<std::string, std::string> hashes; ///< of the secrets in the request, by their plain text
    std::uint32_t verifiedUser = 0;            ///< whose password the login gave rightly, 0 = nobody's
    SettingsResult settings;
    std::string verifiedHash; ///< the stored hash that it was held against
    bool resumed = false;     ///< the login gave no password, but the key of a session that was lost
};

struct Context {
    Transaction& tx;
    Errors& errors;
    std::int64_t now; ///< seconds since 1970 UTC
    Method method;
    ClientId client;
    const Prepared& prepared;
    const json_t* params = nullptr; ///< of the request; null when it has none
    std::uint32_t index = 0;        ///< actions: the record they are meant for, 0 = not told
    RecordPtr before = {};          ///< set, delete: the stored record
    Record* after = nullptr;        ///< set, create: the record to be; actions: the parameters
    std::vector<std::pair<std::string_view, std::uint32_t>> reply =
        {}; ///< create: further keys of the answer
    std::vector<std::pair<std::string_view, std::string>> replyTexts = {}; ///< the same, texts

    FailureAlert failureAlert = {};

    void fail(Errno number, std::string detail = {}) const { addError(errors, number, std::move(detail)); }
    /// The request's parameters hold the key.
    bool given(std::string_view key) const {
        return json_object_get(params, std::string(key).c_str()) != nullptr;
    }
    /// The key's value differs from the stored one, or at creation from its fallback.
    bool changes(std::string_view key) const {
        const Value old = before ? before->at(key) : Record(after->id(), 0).at(key);
        return !sameValue(old, after->at(key));
    }
};

} // namespace zeqd
