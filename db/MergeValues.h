#pragma once

#include <utility>
#include <vector>

/// The value that all records hold. `read(index, T& value)` returns 0 or 1 and is called in order, up to the
/// first failure (the result is then 1) or the first difference (`same` is then false and `value` empty). No
/// record at all gives 0, an empty value and `same` true.
template <class T, class Read>
unsigned mergeValues(const std::vector<unsigned>& indexes, T& value, bool& same, Read read) {
    same = true;
    value = T{};
    T common{};
    bool first = true;
    for (const unsigned index : indexes) {
        T next{};
        if (read(index, next) != 0) return 1;
        if (first) {
            common = std::move(next);
            first = false;
        } else if (next != common) {
            same = false;
            return 0;
        }
    }
    value = std::move(common);
    return 0;
}
