#include <Wt/WString.h>

#include <Wt/WApplication.h>
#include <Wt/WLocalizedStrings.h>
#include <Wt/WStringUtil.h>

#include "core/Utf8.h"

#include <charconv>
#include <cstdint>
#include <ostream>

namespace Wt {

namespace {

/// Highest number of a place such as {1}.
constexpr unsigned kMaxPlaces = 99;

std::string fill(const std::string& text, const std::vector<WString>& args) {
    std::string out;
    out.reserve(text.size() + 16 * args.size());
    for (std::size_t i = 0; i < text.size();) {
        if (text[i] == '{') {
            std::size_t end = i + 1;
            std::size_t number = 0;
            while (end < text.size() && text[end] >= '0' && text[end] <= '9' && number <= kMaxPlaces)
                number = number * 10 + static_cast<std::size_t>(text[end++] - '0');
            if (end > i + 1 && end < text.size() && text[end] == '}' && number >= 1 &&
                number <= args.size()) {
                out += args[number - 1].toUTF8();
                i = end + 1;
                continue;
            }
        }
        out += text[i++];
    }
    return out;
}

} // namespace

struct WString::Places {
    std::vector<WString> args;
    unsigned long long amount = 0;
    bool plural = false;
};

const WString WString::Empty;

WString::WString(const char* value, CharEncoding) : mText(value ? value : "") {}
WString::WString(const std::string& value, CharEncoding) : mText(value) {}
WString::WString(const wchar_t* value) : mText(Wt::toUTF8(value ? std::wstring(value) : std::wstring())) {}
WString::WString(const std::wstring& value) : mText(Wt::toUTF8(value)) {}

WString::WString(const WString& other)
    : mText(other.mText), mPlaces(other.mPlaces ? new Places(*other.mPlaces) : nullptr),
      mKeyed(other.mKeyed) {}

WString& WString::operator=(const WString& other) {
    if (this != &other) *this = WString(other);
    return *this;
}

WString& WString::operator=(WString&& other) noexcept {
    std::swap(mText, other.mText);
    std::swap(mPlaces, other.mPlaces);
    std::swap(mKeyed, other.mKeyed);
    return *this;
}

void WString::dropPlaces() {
    delete mPlaces;
}

WString WString::fromUTF8(const std::string& value, bool checkValid) {
    WString result;
    if (checkValid)
        Impl::appendValidUtf8(result.mText, value);
    else
        result.mText = value;
    return result;
}

WString WString::fromUTF8(const char* value, bool checkValid) {
    return fromUTF8(std::string(value ? value : ""), checkValid);
}

WString WString::tr(const char* key) {
    WString result;
    result.mText = key ? key : "";
    result.mKeyed = true;
    return result;
}

WString WString::tr(const std::string& key) {
    return tr(key.c_str());
}

WString WString::trn(const std::string& key, unsigned long long n) {
    WString result = tr(key);
    result.places().plural = true;
    result.places().amount = n;
    return result;
}

WString::Places& WString::places() {
    if (!mPlaces) mPlaces = new Places;
    return *mPlaces;
}

WString& WString::arg(const WString& value) {
    places().args.push_back(value);
    return *this;
}

namespace {
template <typename N>
WString number(N value) {
    char text[40];
    const auto end = std::to_chars(text, text + sizeof text, value).ptr;
    return WString(std::string(text, end));
}
} // namespace

WString& WString::arg(const std::wstring& value) {
    return arg(WString(value));
}
WString& WString::arg(const std::string& value, CharEncoding encoding) {
    return arg(WString(value, encoding));
}
WString& WString::arg(const char* value, CharEncoding encoding) {
    return arg(WString(value, encoding));
}
WString& WString::arg(int value) {
    return arg(number(value));
}
WString& WString::arg(unsigned value) {
    return arg(number(value));
}
WString& WString::arg(long value) {
    return arg(number(value));
}
WString& WString::arg(unsigned long value) {
    return arg(number(value));
}
WString& WString::arg(long long value) {
    return arg(number(value));
}
WString& WString::arg(unsigned long long value) {
    return arg(number(value));
}
WString& WString::arg(double value) {
    return arg(number(value));
}

std::string WString::toUTF8() const {
    if (!mKeyed) return mPlaces ? fill(mText, mPlaces->args) : mText;
    std::string text;
    WApplication* application = WApplication::instance();
    WLocalizedStrings* strings = application ? application->localizedStrings() : nullptr;
    const bool found =
        strings && (mPlaces && mPlaces->plural ? strings->resolvePluralKey(mText, text, mPlaces->amount)
                                               : strings->resolveKey(mText, text));
    if (!found) text = "??" + mText + "??";
    return mPlaces ? fill(text, mPlaces->args) : text;
}

WString& WString::operator+=(const WString& other) {
    std::string text = toUTF8() + other.toUTF8();
    *this = WString();
    mText = std::move(text);
    return *this;
}

WString WString::trim() const {
    const std::string text = toUTF8();
    const char* const blank = " \t\r\n\f\v";
    const auto begin = text.find_first_not_of(blank);
    if (begin == std::string::npos) return WString();
    return fromUTF8(text.substr(begin, text.find_last_not_of(blank) - begin + 1));
}

std::wstring WString::value() const {
    return Wt::fromUTF8(toUTF8());
}

bool WString::empty() const {
    return mKeyed || mPlaces ? toUTF8().empty() : mText.empty();
}

const std::string WString::key() const {
    return mKeyed ? mText : std::string();
}

const std::vector<WString>& WString::args() const {
    static const std::vector<WString> none;
    return mPlaces ? mPlaces->args : none;
}

bool WString::operator==(const WString& other) const {
    if (mKeyed == other.mKeyed && !mPlaces && !other.mPlaces) return mText == other.mText;
    return toUTF8() == other.toUTF8();
}

bool WString::operator<(const WString& other) const {
    return toUTF8() < other.toUTF8();
}

WString operator+(const WString& a, const WString& b) {
    WString result = a;
    result += b;
    return result;
}

std::wostream& operator<<(std::wostream& out, const WString& text) {
    return out << text.value();
}
std::ostream& operator<<(std::ostream& out, const WString& text) {
    return out << text.toUTF8();
}

const WString utf8(const char* value) {
    return WString::fromUTF8(value);
}
const WString utf8(const std::string& value) {
    return WString::fromUTF8(value);
}

std::string toUTF8(const std::wstring& value) {
    std::string out;
    for (const wchar_t c : value) Impl::appendCodePoint(out, static_cast<char32_t>(c));
    return out;
}

std::wstring fromUTF8(const std::string& value) {
    std::string valid;
    Impl::appendValidUtf8(valid, value);
    std::wstring out;
    for (std::string_view rest = valid; !rest.empty();) {
        const unsigned length = Impl::utf8Length(rest);
        auto code = static_cast<std::uint32_t>(static_cast<unsigned char>(rest[0]));
        if (length > 1) code &= 0x7FU >> length;
        for (unsigned i = 1; i < length; ++i)
            code = (code << 6) | (static_cast<unsigned char>(rest[i]) & 0x3FU);
        out += static_cast<wchar_t>(code);
        rest.remove_prefix(length);
    }
    return out;
}

std::wstring widen(const std::string& value) {
    return fromUTF8(value);
}
std::string narrow(const std::wstring& value) {
    return toUTF8(value);
}

} // namespace Wt
