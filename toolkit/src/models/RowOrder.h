#pragma once

#include <vector>

namespace Wt::Impl {

/// Which rows of a source a proxy shows, and in what order: a two-way map between the rows 0..n-1 of the
/// source and the positions of the shown ones. Kept in blocks, so that moving one row among ten thousand
/// costs a few hundred steps, whichever way it goes.
class RowOrder {
public:
    int size() const { return mSize; }                                ///< shown rows
    int sources() const { return static_cast<int>(mBlockOf.size()); } ///< rows of the source
    int at(int position) const;                                       ///< source row
    int position(int source) const;                                   ///< -1 when not shown, or out of range
    bool contains(int source) const { return source >= 0 && source < sources() && mBlockOf[source] >= 0; }
    std::vector<int> all() const; ///< source rows in order

    /// `order` replaces everything; `sources` is the number of the source's rows.
    void assign(const std::vector<int>& order, int sources);
    void insert(int position, const std::vector<int>& sourceRows);
    void erase(int position, int count = 1);

    /// Rows of the source came (not shown) or went (they are not to be shown any more);
    /// the others are renumbered.
    void sourceInserted(int first, int count);
    void sourceRemoved(int first, int count);

private:
    static constexpr int kBlock = 512; ///< a full block is split in two

    struct Place {
        int block, offset;
    };
    Place find(int position) const;
    void renumber(std::size_t fromBlock);

    std::vector<std::vector<int>> mBlocks; ///< none is empty
    std::vector<int> mBlockOf;             ///< by source row; -1 = not shown
    int mSize = 0;
};

} // namespace Wt::Impl
