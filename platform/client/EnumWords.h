// Enumerations: the words of the database and their numbers, which count from 1.
// Internal to the client library.
#ifndef PLATFORM_CLIENT_ENUMWORDS_H
#define PLATFORM_CLIENT_ENUMWORDS_H

#include <span>

namespace zeq {

struct EnumWords {
    std::span<const char* const> words; ///< number of words[i] is i + 1
    int unlisted = 1;                   ///< number of a word that is not among them
};

extern const EnumWords kAccessMode;
extern const EnumWords kUserRole;
extern const EnumWords kSwxMode;
extern const EnumWords kSwxStatus;
extern const EnumWords kSwxUsage;
extern const EnumWords kEnabled;

/// 0 for a null word.
int enumNumber(const EnumWords& words, const char* word);
/// Null for a number without a word.
const char* enumWord(const EnumWords& words, int number);

} // namespace zeq

#endif
