#pragma once

#include <cstddef>
#include <string_view>

/// One value of an enumeration: its number, its database string,
/// and the message key of the user's word (or none).
template <class E>
struct EnumRow {
    E value;
    std::string_view dbValue;
    const char* textKey = nullptr;
};

/// True when row i holds number i + 1 and no database string stands twice, so that the table reads both ways.
template <class E, std::size_t N>
constexpr bool coversInOrder(const EnumRow<E> (&rows)[N]) {
    for (std::size_t i = 0; i < N; ++i) {
        if (static_cast<std::size_t>(rows[i].value) != i + 1) return false;
        for (std::size_t j = 0; j < i; ++j)
            if (rows[j].dbValue == rows[i].dbValue) return false;
    }
    return true;
}

/// The row of a database string, 0 when the table lacks it.
template <class E, std::size_t N>
constexpr const EnumRow<E>* rowOfString(const EnumRow<E> (&rows)[N], std::string_view dbValue) {
    for (const EnumRow<E>& row : rows)
        if (row.dbValue == dbValue) return &row;
    return nullptr;
}

/// The row of a number, 0 when the table lacks it.
template <class E, std::size_t N>
constexpr const EnumRow<E>* rowOfValue(const EnumRow<E> (&rows)[N], E value) {
    for (const EnumRow<E>& row : rows)
        if (row.value == value) return &row;
    return nullptr;
}

/// The number of a database string; a string that the table lacks gives the first row's, so that a new value
/// in the database never stops the interface.
template <class E, std::size_t N>
constexpr E valueOfString(const EnumRow<E> (&rows)[N], const char* dbValue) {
    const EnumRow<E>* row = dbValue ? rowOfString(rows, dbValue) : nullptr;
    return row ? row->value : rows[0].value;
}
