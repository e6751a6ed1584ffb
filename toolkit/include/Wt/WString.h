#pragma once

#include <Wt/WGlobal.h>

#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

namespace Wt {

class WString;

/// Text of the user interface, held as UTF-8: either a literal, or a key that is looked up in the message
/// resources of the application at the moment of use, with arguments for the places {1}, {2}, ... A key that
/// no bundle has shows as "??key??". Bytes that are not UTF-8 are replaced when the text is used.
class WString {
public:
    WString() = default;
    WString(const char* value, CharEncoding encoding = DefaultEncoding);
    WString(const std::string& value, CharEncoding encoding = DefaultEncoding);
    WString(const wchar_t* value);
    WString(const std::wstring& value);
    WString(const WString& other);
    WString(WString&& other) noexcept
        : mText(std::move(other.mText)), mPlaces(other.mPlaces), mKeyed(other.mKeyed) {
        other.mPlaces = nullptr;
        other.mKeyed = false;
        other.mText.clear();
    }
    ~WString() {
        if (mPlaces) dropPlaces();
    }
    WString& operator=(const WString& other);
    WString& operator=(WString&& other) noexcept;

    static WString fromUTF8(const std::string& value, bool checkValid = false);
    static WString fromUTF8(const char* value, bool checkValid = false);
    static WString tr(const char* key);
    static WString tr(const std::string& key);
    static WString trn(const std::string& key, unsigned long long n);

    static const WString Empty;

    /// Fills the next place. The order of the calls is the number of the place.
    WString& arg(const std::wstring& value);
    WString& arg(const std::string& value, CharEncoding encoding = DefaultEncoding);
    WString& arg(const char* value, CharEncoding encoding = DefaultEncoding);
    WString& arg(const WString& value);
    WString& arg(int value);
    WString& arg(unsigned value);
    WString& arg(long value);
    WString& arg(unsigned long value);
    WString& arg(long long value);
    WString& arg(unsigned long long value);
    WString& arg(double value);

    /// Makes a literal of the result, as it reads now.
    WString& operator+=(const WString& other);
    WString trim() const;

    std::string toUTF8() const;
    std::string narrow() const { return toUTF8(); }
    std::wstring value() const;
    operator std::wstring() const { return value(); }
    bool empty() const;
    bool literal() const { return !mKeyed; }
    /// Empty for a literal.
    const std::string key() const;
    const std::vector<WString>& args() const;

    /// False if the text read as before: a keyed string is looked up at each use, so nothing is kept here.
    bool refresh() { return !literal(); }

    bool operator==(const WString& other) const;
    bool operator!=(const WString& other) const { return !(*this == other); }
    bool operator<(const WString& other) const;
    bool operator<=(const WString& other) const { return !(other < *this); }
    bool operator>(const WString& other) const { return other < *this; }
    bool operator>=(const WString& other) const { return !(*this < other); }

private:
    struct Places;
    Places& places();
    void dropPlaces();

    std::string mText;         // the literal, or the key
    Places* mPlaces = nullptr; // owned
    bool mKeyed = false;
};

WString operator+(const WString& a, const WString& b);
std::wostream& operator<<(std::wostream& out, const WString& text);
std::ostream& operator<<(std::ostream& out, const WString& text);

extern const WString utf8(const char* value);
extern const WString utf8(const std::string& value);

} // namespace Wt
