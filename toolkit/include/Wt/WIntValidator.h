#pragma once

#include <Wt/WValidator.h>

namespace Wt {

/// Accepts a whole number within a range, both ends included.
class WIntValidator : public WValidator {
public:
    explicit WIntValidator(WObject* parent = nullptr); ///< any int
    WIntValidator(int bottom, int top, WObject* parent = nullptr);

    int bottom() const { return mBottom; }
    int top() const { return mTop; }
    void setBottom(int bottom);
    void setTop(int top);
    virtual void setRange(int bottom, int top);
    void setInvalidNotANumberText(const WString& text);
    WString invalidNotANumberText() const;
    void setInvalidTooSmallText(const WString& text); ///< "{1}" and "{2}" stand for the ends
    WString invalidTooSmallText() const;
    void setInvalidTooLargeText(const WString& text);
    WString invalidTooLargeText() const;

    Result validate(const WString& input) const override;
    std::string inputFilter() const override;

private:
    int mBottom;
    int mTop;
    WString mNotANumber, mTooSmall, mTooLarge;
};

} // namespace Wt
