#include "models/RowOrder.h"

#include <algorithm>

namespace Wt::Impl {

RowOrder::Place RowOrder::find(int position) const {
    int block = 0;
    while (block + 1 < static_cast<int>(mBlocks.size()) &&
           position >= static_cast<int>(mBlocks[block].size()))
        position -= static_cast<int>(mBlocks[block++].size());
    return {block, position};
}

int RowOrder::at(int position) const {
    const Place place = find(position);
    return mBlocks[place.block][place.offset];
}

int RowOrder::position(int source) const {
    if (!contains(source)) return -1;
    const int block = mBlockOf[source];
    int before = 0;
    for (int b = 0; b < block; ++b) before += static_cast<int>(mBlocks[b].size());
    const std::vector<int>& rows = mBlocks[block];
    return before + static_cast<int>(std::find(rows.begin(), rows.end(), source) - rows.begin());
}

std::vector<int> RowOrder::all() const {
    std::vector<int> rows;
    rows.reserve(mSize);
    for (const auto& block : mBlocks) rows.insert(rows.end(), block.begin(), block.end());
    return rows;
}

void RowOrder::assign(const std::vector<int>& order, int sources) {
    mBlocks.clear();
    mBlockOf.assign(sources, -1);
    mSize = static_cast<int>(order.size());
    for (std::size_t from = 0; from < order.size(); from += kBlock / 2)
        mBlocks.emplace_back(order.begin() + from,
                             order.begin() + std::min<std::size_t>(from + kBlock / 2, order.size()));
    renumber(0);
}

void RowOrder::renumber(std::size_t fromBlock) {
    for (std::size_t b = fromBlock; b < mBlocks.size(); ++b)
        for (int row : mBlocks[b]) mBlockOf[row] = static_cast<int>(b);
}

void RowOrder::insert(int position, const std::vector<int>& sourceRows) {
    if (mBlocks.empty()) mBlocks.emplace_back();
    const Place place = find(position);
    std::vector<int>& block = mBlocks[place.block];
    block.insert(block.begin() + place.offset, sourceRows.begin(), sourceRows.end());
    mSize += static_cast<int>(sourceRows.size());
    if (static_cast<int>(block.size()) <= kBlock) {
        for (int row : sourceRows) mBlockOf[row] = place.block;
        return;
    }
    std::vector<int> whole;
    whole.swap(block);
    std::vector<std::vector<int>> parts;
    for (std::size_t from = 0; from < whole.size(); from += kBlock / 2)
        parts.emplace_back(whole.begin() + from,
                           whole.begin() + std::min<std::size_t>(from + kBlock / 2, whole.size()));
    mBlocks.erase(mBlocks.begin() + place.block);
    mBlocks.insert(mBlocks.begin() + place.block, std::make_move_iterator(parts.begin()),
                   std::make_move_iterator(parts.end()));
    renumber(place.block);
}

void RowOrder::erase(int position, int count) {
    const Place place = find(position);
    int block = place.block, offset = place.offset;
    bool emptied = false;
    mSize -= count;
    while (count > 0) {
        std::vector<int>& rows = mBlocks[block];
        const int here = std::min(count, static_cast<int>(rows.size()) - offset);
        for (int i = 0; i < here; ++i) mBlockOf[rows[offset + i]] = -1;
        rows.erase(rows.begin() + offset, rows.begin() + offset + here);
        emptied = emptied || rows.empty();
        count -= here;
        offset = 0;
        ++block;
    }
    if (!emptied) return;
    std::erase_if(mBlocks, [](const auto& rows) { return rows.empty(); });
    renumber(place.block);
}

void RowOrder::sourceInserted(int first, int count) {
    mBlockOf.insert(mBlockOf.begin() + first, count, -1);
    if (first + count == sources()) return;
    for (auto& block : mBlocks)
        for (int& row : block)
            if (row >= first) row += count;
}

void RowOrder::sourceRemoved(int first, int count) {
    for (int source = first; source < first + count; ++source)
        if (mBlockOf[source] >= 0) erase(position(source));
    mBlockOf.erase(mBlockOf.begin() + first, mBlockOf.begin() + first + count);
    for (auto& block : mBlocks)
        for (int& row : block)
            if (row >= first + count) row -= count;
}

} // namespace Wt::Impl
