#pragma once

#include <cstddef>

namespace Wt::Impl {

/// What belongs to a value of an enumeration, in a table that is indexed by it.
template <class E, class T>
struct RowOf {
    E value;
    T is;
};

/// True when row i is that of the value i, up to the last one.
template <class E, class T, std::size_t N>
constexpr bool coversInOrder(const RowOf<E, T> (&rows)[N], E last) {
    for (std::size_t i = 0; i < N; ++i)
        if (static_cast<std::size_t>(rows[i].value) != i) return false;
    return N == static_cast<std::size_t>(last) + 1;
}

} // namespace Wt::Impl
