// Sets, creates and deletes.
#pragma once

#include "platform/service/domain/Context.h"
#include "platform/service/request/ZeqRequest.h"

#include <set>

namespace zeqd {

/// Runs the request in the transaction and answers the JSON text.
/// With errors, the transaction is to be dropped.
std::string runWrite(const ZeqRequest& request, Context& context);

/// Judges the parameters of an action by the catalogue alone, without running it.
void checkAction(const ZeqRequest& request, Errors& errors);

/// Success, without a row.
std::string answerText(std::int64_t id);

/// The plain texts of the secrets that the request wants stored, and that are to be hashed before it runs.
/// Those that the limits refuse anyway are left out.
std::set<std::string> secretsOf(const ZeqRequest& request);

/// Moves the changeStatus records that the transaction's changes move.
void moveChangeStatus(Transaction& tx);

} // namespace zeqd
