// Arguments of a log message with their types, and a check of literal formats while compiling.
// Internal to EventLog.h.
#ifndef PLATFORM_CLIENT_EVENTLOGFORMAT_H
#define PLATFORM_CLIENT_EVENTLOGFORMAT_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

/// One argument, borrowed for the length of the call.
struct EventLogArg {
    enum class Kind : unsigned char { Signed, Unsigned, Real, Text, Pointer };

    Kind kind;
    unsigned char size =
        0; ///< bytes of the number as the caller passed it: %u of a negative int shows 32 bits
    union {
        long long number;
        unsigned long long bits;
        double real;
        const void* pointer;
    };
    std::string_view text; ///< Text only; a null pointer shows as (null)

    template <class T>
    static constexpr Kind kindOf() {
        if constexpr (std::is_enum_v<T>) {
            return kindOf<std::underlying_type_t<T>>();
        } else if constexpr (std::is_floating_point_v<T>) {
            return Kind::Real;
        } else if constexpr (std::is_integral_v<T>) {
            return std::is_signed_v<T> ? Kind::Signed : Kind::Unsigned;
        } else if constexpr (std::is_convertible_v<const T&, std::string_view>) {
            return Kind::Text;
        } else {
            static_assert(std::is_pointer_v<T>, "EventLog_write takes numbers, texts and pointers");
            return Kind::Pointer;
        }
    }

    template <class T>
    explicit EventLogArg(const T& value) : kind(kindOf<std::decay_t<T>>()), number(0) {
        using Plain = std::decay_t<T>;
        if constexpr (std::is_convertible_v<const Plain&, const char*>) {
            const char* chars = value;
            text = chars ? std::string_view(chars) : std::string_view("(null)");
        } else if constexpr (std::is_convertible_v<const Plain&, std::string_view>) {
            text = value;
        } else if constexpr (std::is_pointer_v<Plain>) {
            pointer = value;
        } else if constexpr (std::is_floating_point_v<Plain>) {
            real = static_cast<double>(value);
        } else {
            size = sizeof(Plain);
            if constexpr (kindOf<Plain>() == Kind::Signed) {
                number = static_cast<long long>(value);
            } else {
                bits = static_cast<unsigned long long>(value);
            }
        }
    }
};

/// One conversion of a printf format: %[flags][width][.precision][length]letter.
struct EventLogConversion {
    std::size_t length = 0; ///< characters from the % on; 0: no conversion, the % is text
    char flags[6] = {};
    char letter = 0;
    int width = 0;
    int precision = -1;
    bool starWidth = false;
    bool starPrecision = false;

    /// Reads the conversion at the start of `text`, which begins with %. Widths above the largest line are
    /// cut to it.
    static constexpr EventLogConversion read(std::string_view text);

    static constexpr bool takes(char letter, EventLogArg::Kind kind) {
        switch (letter) {
        case 'd':
        case 'i':
        case 'u':
        case 'o':
        case 'x':
        case 'X':
        case 'c':
            return kind == EventLogArg::Kind::Signed || kind == EventLogArg::Kind::Unsigned;
        case 'e':
        case 'E':
        case 'f':
        case 'F':
        case 'g':
        case 'G':
        case 'a':
        case 'A':
            return kind == EventLogArg::Kind::Real;
        case 's':
            return kind == EventLogArg::Kind::Text;
        default:
            return kind == EventLogArg::Kind::Pointer || kind == EventLogArg::Kind::Text;
        }
    }
};

/// Longest line of the log in bytes, without time and function; the rest of a message is cut off.
constexpr std::size_t kEventLogMessageMax = 4096;

constexpr EventLogConversion EventLogConversion::read(std::string_view text) {
    constexpr std::string_view kFlags = "-+ #0";
    constexpr std::string_view kLengths = "hljztLq";
    constexpr std::string_view kLetters = "diouxXcsfFeEgGaAp%";
    EventLogConversion out;
    std::size_t at = 1;
    std::size_t flagCount = 0;
    auto number = [&] {
        int value = 0;
        for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) {
            if (value < static_cast<int>(kEventLogMessageMax)) value = value * 10 + (text[at] - '0');
        }
        return value < static_cast<int>(kEventLogMessageMax) ? value : static_cast<int>(kEventLogMessageMax);
    };
    auto star = [&] {
        bool found = at < text.size() && text[at] == '*';
        at += found;
        return found;
    };
    for (; at < text.size() && kFlags.find(text[at]) != kFlags.npos; ++at) {
        if (std::string_view(out.flags).find(text[at]) == std::string_view::npos)
            out.flags[flagCount++] = text[at];
    }
    out.starWidth = star();
    if (!out.starWidth) out.width = number();
    if (at < text.size() && text[at] == '.') {
        ++at;
        out.starPrecision = star();
        if (!out.starPrecision) out.precision = number();
    }
    while (at < text.size() && kLengths.find(text[at]) != kLengths.npos) ++at;
    if (at < text.size() && kLetters.find(text[at]) != kLetters.npos) {
        out.letter = text[at];
        out.length = at + 1;
    }
    return out;
}

/// A format for arguments of these types. A literal is checked while compiling; any other text is accepted as
/// it is and interpreted safely when it is written.
template <class... Args>
class EventLogFormat {
public:
    template <std::size_t N>
    consteval EventLogFormat(const char (&literal)[N]) : mText(literal, N - 1) { // NOLINT: implicit by design
        constexpr EventLogArg::Kind kinds[] = {EventLogArg::kindOf<Args>()..., EventLogArg::Kind::Text};
        std::size_t used = 0;
        auto take = [&](char letter) {
            if (used >= sizeof...(Args)) conversionHasNoArgument();
            if (!EventLogConversion::takes(letter, kinds[used])) conversionDoesNotFitItsArgument();
            ++used;
        };
        for (std::size_t at = 0; at < mText.size(); ++at) {
            if (mText[at] != '%') continue;
            EventLogConversion conversion = EventLogConversion::read(mText.substr(at));
            if (conversion.length == 0) unknownConversion();
            at += conversion.length - 1;
            if (conversion.letter == '%') continue;
            if (conversion.starWidth) take('d');
            if (conversion.starPrecision) take('d');
            take(conversion.letter);
        }
        if (used != sizeof...(Args)) argumentWithoutConversion();
    }
    template <std::size_t N>
    EventLogFormat(char (&buffer)[N]) : EventLogFormat(std::string_view(buffer)) {} // NOLINT
    template <class T>
    requires std::is_pointer_v<T> && std::is_convertible_v<T, const char*> EventLogFormat(const T& text)
        : mText(text ? text : "(null)") {}                   // NOLINT
    EventLogFormat(const std::string& text) : mText(text) {} // NOLINT
    explicit EventLogFormat(std::string_view text) : mText(text) {}

    constexpr std::string_view text() const { return mText; }

private:
    // Not constexpr on purpose: the compiler names the function that a faulty format would have called.
    static void conversionHasNoArgument() {}
    static void conversionDoesNotFitItsArgument() {}
    static void argumentWithoutConversion() {}
    static void unknownConversion() {}

    std::string_view mText;
};

#endif
