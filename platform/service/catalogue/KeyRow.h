// One row of the catalogue: what a key of a record is. Everything that knows a key reads it from here:
// validation, defaults, reads, the store, the demo data check and the generated documentation.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace zeqd {

enum class Type : std::uint8_t { Text, Number, Choice, Binary, Object, List };

/// Who may do what with a key.
enum class Access : std::uint8_t {
    Write,    ///< clients read and write it
    Create,   ///< clients give it when they create the record, later it is read only
    Read,     ///< only the service writes it
    Act,      ///< writing it starts an action; reads never show it
    Internal, ///< the service's own, never seen by clients
};

/// What a read shows of a stored secret.
enum class Secret : std::uint8_t {
    No,
    Hashed, ///< kept as a slow hash, read as an empty text
    Masked, ///< kept as it is, read as stars when there is one
};

/// Form of a text, beyond its length.
enum class Form : std::uint8_t {
    Any,
    Printable,      ///< blank to tilde
    PrintableLines, ///< the same and newlines
    NoBlank,        ///< exclamation mark to tilde
    AlphaNumeric,
    Eid,  ///< six letters or digits, a hyphen, six letters or digits
    IpV4, ///< dotted quad; empty allowed by a low limit of 0
    IpV6,
    Ip,   ///< either
    Host, ///< an address or a host name with a domain
    Mac,  ///< six or eight pairs
    Url,  ///< http or https
};

/// The strings a Choice may hold. Their places are what is kept in memory.
struct ValueList {
    std::string_view name;
    std::span<const std::string_view> values;
};

struct ChangeNumber {
    std::uint8_t also = 0; ///< a further changeStatus record that this key moves, 0 = none
    bool silent = false;   ///< changes of this key move nothing
};

struct KeyRow {
    std::string_view key;
    Type type = Type::Text;
    Access access = Access::Write;
    Secret secret = Secret::No;
    Form form = Form::Any;
    std::uint32_t low = 0;  ///< Text: characters; Number: value; Binary: bytes; List: entries
    std::uint32_t high = 0; ///< the same, inclusive
    const ValueList* values = nullptr;
    const KeyRow* children = nullptr; ///< of an Object, or of each entry of a List
    std::size_t childCount = 0;
    std::string_view fallback = {}; ///< value of a new record, as text
    std::string_view refersTo = {}; ///< resource whose index this number is
    std::string_view mergeBy = {};  ///< List: entries are told apart by this key and merged, not replaced
    bool optional = false;          ///< absent from reads until it is known
    bool required = false;          ///< a create without it is refused
    bool unique = false;            ///< no two records of the resource share it, the empty text apart
    ChangeNumber change = {};
    std::string_view help = {};

    constexpr std::span<const KeyRow> rows() const { return {children, childCount}; }

    // Builders: each answers a changed copy, so that a row reads as one line.
    constexpr KeyRow with(Access value) const {
        KeyRow row = *this;
        row.access = value;
        return row;
    }
    constexpr KeyRow with(Secret value) const {
        KeyRow row = *this;
        row.secret = value;
        return row;
    }
    constexpr KeyRow read() const { return with(Access::Read); }
    constexpr KeyRow create() const { return with(Access::Create); }
    constexpr KeyRow act() const { return with(Access::Act); }
    constexpr KeyRow internal() const { return with(Access::Internal); }
    constexpr KeyRow def(std::string_view value) const {
        KeyRow row = *this;
        row.fallback = value;
        return row;
    }
    constexpr KeyRow need() const {
        KeyRow row = *this;
        row.required = true;
        return row;
    }
    constexpr KeyRow maybe() const {
        KeyRow row = *this;
        row.optional = true;
        return row;
    }
    constexpr KeyRow once() const {
        KeyRow row = *this;
        row.unique = true;
        return row;
    }
    constexpr KeyRow ref(std::string_view resource) const {
        KeyRow row = *this;
        row.refersTo = resource;
        return row;
    }
    constexpr KeyRow merged(std::string_view by) const {
        KeyRow row = *this;
        row.mergeBy = by;
        return row;
    }
    constexpr KeyRow also(std::uint8_t id) const {
        KeyRow row = *this;
        row.change.also = id;
        return row;
    }
    constexpr KeyRow silent() const {
        KeyRow row = *this;
        row.change.silent = true;
        return row;
    }
};

constexpr std::uint32_t kAnyNumber = 0xFFFFFFFF;

/// Text of at most `most` bytes.
constexpr KeyRow text(std::string_view key, std::uint32_t most, Form form, std::string_view help) {
    KeyRow row;
    row.key = key, row.high = most, row.form = form, row.help = help;
    return row;
}
constexpr KeyRow number(std::string_view key, std::uint32_t low, std::uint32_t high, std::string_view help) {
    KeyRow row;
    row.key = key, row.type = Type::Number, row.low = low, row.high = high, row.help = help;
    return row;
}
constexpr KeyRow choice(std::string_view key, const ValueList& values, std::string_view help) {
    KeyRow row;
    row.key = key, row.type = Type::Choice, row.values = &values, row.help = help;
    return row;
}
constexpr KeyRow binary(std::string_view key, std::uint32_t low, std::uint32_t high, std::string_view help) {
    KeyRow row;
    row.key = key, row.type = Type::Binary, row.low = low, row.high = high, row.help = help;
    return row;
}
template <std::size_t N>
constexpr KeyRow object(std::string_view key, const KeyRow (&rows)[N], std::string_view help) {
    KeyRow row;
    row.key = key, row.type = Type::Object, row.children = rows, row.childCount = N, row.help = help;
    return row;
}
template <std::size_t N>
constexpr KeyRow list(std::string_view key, const KeyRow (&rows)[N], std::uint32_t most,
                      std::string_view help) {
    KeyRow row;
    row.key = key, row.type = Type::List, row.children = rows, row.childCount = N, row.high = most,
    row.help = help;
    return row;
}

} // namespace zeqd
