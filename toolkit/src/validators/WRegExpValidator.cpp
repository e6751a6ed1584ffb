#include <Wt/WRegExpValidator.h>

#include "validators/Pattern.h"

namespace Wt {

WRegExpValidator::WRegExpValidator(WObject* parent) : WValidator(parent) {}
WRegExpValidator::WRegExpValidator(const WString& pattern, WObject* parent) : WValidator(parent) {
    setRegExp(pattern);
}
WRegExpValidator::~WRegExpValidator() = default;

void WRegExpValidator::setRegExp(const WString& pattern) {
    mText = pattern;
    const std::string text = pattern.toUTF8();
    mPattern = text.empty() ? nullptr : Impl::Pattern::of(text, mFlags.testFlag(MatchCaseInsensitive));
    repaint();
}
WString WRegExpValidator::regExpPattern() const {
    return mText;
}

void WRegExpValidator::setFlags(WFlags<RegExpFlag> flags) {
    if (mFlags.value() == flags.value()) return;
    mFlags = flags;
    setRegExp(mText);
}
WFlags<RegExpFlag> WRegExpValidator::flags() const {
    return mFlags;
}

void WRegExpValidator::setInvalidNoMatchText(const WString& text) {
    mNoMatchText = text;
    repaint();
}
WString WRegExpValidator::invalidNoMatchText() const {
    return mNoMatchText.empty() ? WString("Invalid input") : mNoMatchText;
}

WValidator::Result WRegExpValidator::validate(const WString& input) const {
    const std::string text = input.toUTF8();
    if (text.empty()) return WValidator::validate(input);
    if (!mPattern || mPattern->matchesAll(text) == Impl::Pattern::Match::Yes) return Result(Valid);
    return Result(Invalid, invalidNoMatchText());
}

} // namespace Wt
