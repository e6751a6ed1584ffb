#include "platform/client/EventLogLine.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstring>

namespace eventlog {

namespace {

using Kind = EventLogArg::Kind;

/// Integer argument as a printf conversion sees it: small ones promoted to int,
/// others cut to the size that was passed.
unsigned long long unsignedOf(const EventLogArg& arg) {
    if (arg.size >= sizeof(long long)) return arg.bits;
    return static_cast<unsigned>(arg.bits);
}

long long signedOf(const EventLogArg& arg) {
    if (arg.kind == Kind::Unsigned && arg.size == sizeof(int)) return static_cast<int>(arg.bits);
    return arg.number;
}

int intOf(const EventLogArg& arg) {
    return static_cast<int>(std::clamp<long long>(signedOf(arg), -static_cast<long long>(kEventLogMessageMax),
                                                  static_cast<long long>(kEventLogMessageMax)));
}

class Formatter {
public:
    Formatter(std::string_view format, std::span<const EventLogArg> args) : mRest(format), mArgs(args) {}

    std::string run() {
        while (!mRest.empty() && mOut.size() < kEventLogMessageMax) {
            const std::size_t percent = std::min(mRest.find('%'), mRest.size());
            take(percent);
            if (!mRest.empty()) convert();
        }
        if (mOut.size() > kEventLogMessageMax) mOut.resize(kEventLogMessageMax);
        return std::move(mOut);
    }

private:
    /// Copies the next `count` characters of the format as they stand.
    void take(std::size_t count) {
        mOut += mRest.substr(0, count);
        mRest.remove_prefix(count);
    }

    void convert() {
        EventLogConversion conversion = EventLogConversion::read(mRest);
        if (conversion.letter == '%') {
            mOut += '%';
            mRest.remove_prefix(conversion.length);
            return;
        }
        const std::size_t needed = 1u + conversion.starWidth + conversion.starPrecision;
        if (conversion.length == 0) return take(1);
        if (mArgs.size() < needed) {
            mArgs = {}; // what follows must not take arguments that were meant for this one
            return take(conversion.length);
        }
        if (conversion.starWidth) conversion.width = intOf(next());
        if (conversion.starPrecision) conversion.precision = intOf(next());
        mRest.remove_prefix(conversion.length);
        put(conversion, next());
    }

    const EventLogArg& next() {
        const EventLogArg& arg = mArgs.front();
        mArgs = mArgs.subspan(1);
        return arg;
    }

    /// Prints with snprintf itself, under a format that is built here to fit the argument's true type.
    void put(const EventLogConversion& conversion, const EventLogArg& arg) {
        const char letter =
            EventLogConversion::takes(conversion.letter, arg.kind) ? conversion.letter : natural(arg.kind);
        switch (arg.kind) {
        case Kind::Text:
            return print(conversion, "", 's', arg.text);
        case Kind::Real:
            return print(conversion, "", letter, arg.real);
        case Kind::Pointer:
            return print(conversion, "", 'p', arg.pointer);
        case Kind::Signed:
        case Kind::Unsigned:
            if (letter == 'c')
                return print(conversion, "", 'c', static_cast<int>(static_cast<unsigned char>(arg.bits)));
            if (letter == 'd' || letter == 'i') return print(conversion, "ll", letter, signedOf(arg));
            return print(conversion, "ll", letter, unsignedOf(arg));
        }
    }

    static char natural(Kind kind) {
        switch (kind) {
        case Kind::Signed:
            return 'd';
        case Kind::Unsigned:
            return 'u';
        case Kind::Real:
            return 'g';
        case Kind::Text:
            return 's';
        case Kind::Pointer:
            break;
        }
        return 'p';
    }

    template <class T>
    void print(const EventLogConversion& conversion, const char* length, char letter, const T& value) {
        char format[24];
        std::snprintf(format, sizeof format, "%%%s*.*%s%c", conversion.flags, length, letter);
        char text[kEventLogMessageMax + 1];
        int written;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral" // built above from checked pieces
        if constexpr (std::is_same_v<T, std::string_view>) {
            // The text need not end with a NUL: the precision never reaches beyond it.
            const int most = static_cast<int>(std::min(value.size(), kEventLogMessageMax));
            const int precision = conversion.precision < 0 ? most : std::min(conversion.precision, most);
            written = std::snprintf(text, sizeof text, format, conversion.width, precision, value.data());
        } else {
            written = std::snprintf(text, sizeof text, format, conversion.width, conversion.precision, value);
        }
#pragma GCC diagnostic pop
        if (written > 0)
            mOut.append(text, std::min<std::size_t>(static_cast<std::size_t>(written), sizeof text - 1));
    }

    std::string_view mRest;
    std::span<const EventLogArg> mArgs;
    std::string mOut;
};

/// Length of the UTF-8 character at the start of `text`, 0 when its bytes are not one (RFC 3629).
std::size_t characterLength(std::string_view text) {
    const auto byte = [&](std::size_t i) {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u;
    };
    const unsigned lead = byte(0);
    const std::size_t length = lead < 0x80   ? 1
                               : lead < 0xC2 ? 0
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                               : lead < 0xF5 ? 4
                                             : 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) return 0;
    }
    const bool overlong = (lead == 0xE0 && byte(1) < 0xA0) || (lead == 0xF0 && byte(1) < 0x90);
    const bool beyond = (lead == 0xED && byte(1) >= 0xA0) || (lead == 0xF4 && byte(1) >= 0x90);
    return overlong || beyond ? 0 : length;
}

bool isControl(std::string_view character) {
    const auto first = static_cast<unsigned char>(character[0]);
    if (character.size() == 1) return first < 0x20 || first == 0x7F;
    return first == 0xC2 && static_cast<unsigned char>(character[1]) < 0xA0; // U+0080 to U+009F
}

} // namespace

std::string format(std::string_view format, std::span<const EventLogArg> args) {
    return Formatter(format, args).run();
}

std::string escape(std::string_view text) {
    constexpr char kHex[] = "0123456789ABCDEF";
    std::string out;
    while (!text.empty()) {
        const std::size_t length = characterLength(text);
        const std::string_view character = text.substr(0, std::max<std::size_t>(length, 1));
        const bool plain = length > 0 && !isControl(character);
        if (out.size() + (plain ? character.size() : 4 * character.size()) > kEventLogMessageMax) break;
        if (plain) {
            out += character;
        } else {
            for (const char c : character) {
                const auto byte = static_cast<unsigned char>(c);
                out += {'\\', 'x', kHex[byte >> 4], kHex[byte & 15]};
            }
        }
        text.remove_prefix(character.size());
    }
    return out;
}

} // namespace eventlog
