#pragma once

#include <Wt/WValidator.h>

#include <memory>

namespace Wt {

namespace Impl {
class Pattern;
}

/// Accepts an input whose whole text is matched by a Perl-like regular expression. An empty input is left to
/// isMandatory(). Without an expression every input is good; one that cannot be compiled, or an input that
/// takes too long to decide, makes the input Invalid.
class WRegExpValidator : public WValidator {
public:
    explicit WRegExpValidator(WObject* parent = nullptr);
    explicit WRegExpValidator(const WString& pattern, WObject* parent = nullptr);
    ~WRegExpValidator() override;

    void setRegExp(const WString& pattern);
    WString regExpPattern() const;
    void setFlags(WFlags<RegExpFlag> flags);
    WFlags<RegExpFlag> flags() const;
    void setInvalidNoMatchText(const WString& text);
    WString invalidNoMatchText() const;

    Result validate(const WString& input) const override;

private:
    WString mText;
    WFlags<RegExpFlag> mFlags;
    WString mNoMatchText;
    std::shared_ptr<const Impl::Pattern> mPattern; ///< null: no expression
};

} // namespace Wt
