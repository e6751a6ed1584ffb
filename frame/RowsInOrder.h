#pragma once

#include <cstddef>

/// True when row i of a table holds the enumeration's value i, counted from 0: what an enumeration names and what
/// stands at its place are then the same. For tables whose rows begin with `value`.
template <class Row, std::size_t N>
constexpr bool rowsInOrder(const Row (&rows)[N]) {
    for (std::size_t i = 0; i < N; ++i) {
        if (static_cast<std::size_t>(rows[i].value) != i) return false;
    }
    return true;
}
