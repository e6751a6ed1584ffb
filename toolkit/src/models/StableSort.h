#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace Wt::Impl {

/// Sorts `items` stably. Unlike std::stable_sort it stays within bounds with an order that contradicts itself
/// (the result is then some permutation), and a sequence that is in order already costs one comparison an
/// item. If `less` throws, the items are some permutation too.
template <typename T, typename Less>
void stableSort(std::vector<T>& items, Less less) {
    std::vector<T> merged(items);
    for (std::size_t width = 1; width < items.size(); width *= 2) {
        for (std::size_t start = 0; start < items.size(); start += 2 * width) {
            const std::size_t middle = std::min(start + width, items.size());
            const std::size_t end = std::min(start + 2 * width, items.size());
            const bool inOrder = middle == end || !less(items[middle], items[middle - 1]);
            std::size_t left = start, right = middle;
            for (std::size_t to = start; to < end; ++to) {
                const bool takeLeft =
                    right == end || (left < middle && (inOrder || !less(items[right], items[left])));
                merged[to] = takeLeft ? items[left++] : items[right++];
            }
        }
        items.swap(merged);
    }
}

} // namespace Wt::Impl
