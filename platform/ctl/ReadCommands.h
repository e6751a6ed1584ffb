// What get, list and watch share: which records and which keys the words ask for.
#ifndef PLATFORM_CTL_READCOMMANDS_H
#define PLATFORM_CTL_READCOMMANDS_H

#include "platform/ctl/Command.h"

namespace zeqctl {

struct ReadWords {
    std::string resource;
    JsonPtr query; ///< object; empty for all records
    std::vector<std::string> keys;
    bool singleRecord = false; ///< exactly one index was given

    /// The keys as the service knows them: of nested ones the first part.
    std::vector<std::string> select() const;
};

/// Throws Failure with Exit::Usage when the resource is missing.
ReadWords parseReadWords(const Context& context);

/// The resource, and the rest of the words in `rest`. Throws Failure with Exit::Usage when there is none.
std::string takeResource(const Context& context, std::vector<std::string>& rest);

} // namespace zeqctl

#endif
