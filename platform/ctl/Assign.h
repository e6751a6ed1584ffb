// KEY=VALUE words of the command line as values of a request.
#ifndef PLATFORM_CTL_ASSIGN_H
#define PLATFORM_CTL_ASSIGN_H

#include "platform/ctl/RemoteCatalogue.h"

#include <istream>

namespace zeqctl {

/// Longest value that is read from a file, in bytes: what fits into a request.
constexpr std::size_t kValueMaxBytes = 512 * 1024;

/// Adds the word's value to `params`. Forms: KEY=TEXT, KEY:=JSON, KEY=@FILE (the file's content; @- reads
/// `input` without its last newline). A key with slashes goes into nested objects. What the catalogue knows
/// as number becomes one, binary content is taken as it is in the file. Throws Failure with Exit::Usage,
/// whose text never repeats the value of a secret.
void assign(json_t* params, const std::string& word, const ResourceInfo& info, std::istream& input);

/// Adds one condition KEY=VALUE of a read to `query`; digits alone are a number.
void addCondition(json_t* query, const std::string& word);

/// Index from 1 to 4294967295 or a list of them, "3" or "1,2,3"; null when the word is neither.
JsonPtr parseIndexes(const std::string& word);

} // namespace zeqctl

#endif
