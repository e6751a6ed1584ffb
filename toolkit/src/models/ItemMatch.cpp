#include "models/ItemMatch.h"

#include "models/Any.h"
#include "validators/Pattern.h"

#include <algorithm>
#include <string_view>

namespace Wt::Impl {

namespace {

constexpr int kHowMask = 0x7;

std::string wildcardToPattern(const std::string& wildcard) {
    std::string pattern;
    for (char c : wildcard) {
        if (c == '*')
            pattern += ".*";
        else if (c == '?')
            pattern += '.';
        else {
            if (std::string_view("\\^$.|+()[]{}").find(c) != std::string_view::npos) pattern += '\\';
            pattern += c;
        }
    }
    return pattern;
}

} // namespace

ItemMatch::ItemMatch(const boost::any& value, WFlags<MatchFlag> flags)
    : mValue(value), mHow(flags.value() & kHowMask), mCaseSensitive(flags.testFlag(MatchCaseSensitive)) {
    const std::string text = asString(value).toUTF8();
    mText = folded(text);
    if (mHow == MatchRegExp) mPattern = Pattern::of(text, !mCaseSensitive);
    if (mHow == MatchWildCard) mPattern = Pattern::of(wildcardToPattern(text), !mCaseSensitive);
}

std::string ItemMatch::folded(std::string text) const {
    if (!mCaseSensitive)
        std::transform(text.begin(), text.end(), text.begin(),
                       [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 'a' - 'A') : c; });
    return text;
}

bool ItemMatch::matches(const boost::any& candidate) const {
    if (mHow == MatchExactly) return sameValue(candidate, mValue);
    const std::string text = asString(candidate).toUTF8();
    if (mPattern) return mPattern->matchesAll(text) == Pattern::Match::Yes;
    const std::string own = folded(text);
    switch (mHow) {
    case MatchStringExactly:
        return own == mText;
    case MatchEndsWith:
        return own.ends_with(mText);
    default:
        return own.starts_with(mText);
    }
}

} // namespace Wt::Impl
