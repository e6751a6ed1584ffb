#include <Wt/WIntValidator.h>

#include <charconv>
#include <limits>

namespace Wt {

WIntValidator::WIntValidator(WObject* parent)
    : WIntValidator(std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), parent) {}
WIntValidator::WIntValidator(int bottom, int top, WObject* parent)
    : WValidator(parent), mBottom(bottom), mTop(top) {}

void WIntValidator::setBottom(int bottom) {
    setRange(bottom, mTop);
}
void WIntValidator::setTop(int top) {
    setRange(mBottom, top);
}

void WIntValidator::setRange(int bottom, int top) {
    if (mBottom == bottom && mTop == top) return;
    mBottom = bottom;
    mTop = top;
    repaint();
}

void WIntValidator::setInvalidNotANumberText(const WString& text) {
    mNotANumber = text;
    repaint();
}
WString WIntValidator::invalidNotANumberText() const {
    return mNotANumber.empty() ? WString("Must be a whole number") : mNotANumber;
}

void WIntValidator::setInvalidTooSmallText(const WString& text) {
    mTooSmall = text;
    repaint();
}
WString WIntValidator::invalidTooSmallText() const {
    WString text = mTooSmall.empty() ? WString("The number must be at least {1}") : mTooSmall;
    return text.arg(mBottom).arg(mTop);
}

void WIntValidator::setInvalidTooLargeText(const WString& text) {
    mTooLarge = text;
    repaint();
}
WString WIntValidator::invalidTooLargeText() const {
    WString text = mTooLarge.empty() ? WString("The number must be at most {2}") : mTooLarge;
    return text.arg(mBottom).arg(mTop);
}

WValidator::Result WIntValidator::validate(const WString& input) const {
    const std::string text = input.toUTF8();
    if (text.empty()) return WValidator::validate(input);
    const char* first = text.data();
    const char* last = text.data() + text.size();
    int number = 0;
    const auto [end, error] = std::from_chars(first, last, number);
    if (end != last || error == std::errc::invalid_argument) return Result(Invalid, invalidNotANumberText());
    const bool beyond = error == std::errc::result_out_of_range;
    if (beyond ? text[0] == '-' : number < mBottom) return Result(Invalid, invalidTooSmallText());
    if (beyond || number > mTop) return Result(Invalid, invalidTooLargeText());
    return Result(Valid);
}

std::string WIntValidator::inputFilter() const {
    return "[-0-9]";
}

} // namespace Wt
