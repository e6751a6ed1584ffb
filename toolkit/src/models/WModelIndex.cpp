#include <Wt/WModelIndex.h>

#include <Wt/WAbstractItemModel.h>

#include <tuple>

namespace Wt {

WModelIndex WModelIndex::parent() const {
    return mModel ? mModel->parent(*this) : WModelIndex();
}

WModelIndex WModelIndex::child(int row, int column) const {
    return mModel ? mModel->index(row, column, *this) : WModelIndex();
}

boost::any WModelIndex::data(int role) const {
    return mModel ? mModel->data(*this, role) : boost::any();
}

WFlags<ItemFlag> WModelIndex::flags() const {
    return mModel ? mModel->flags(*this) : WFlags<ItemFlag>();
}

int WModelIndex::depth() const {
    int depth = 0;
    for (WModelIndex up = *this; up.isValid(); up = up.parent()) ++depth;
    return depth;
}

bool WModelIndex::isAncestor(const WModelIndex& index, const WModelIndex& ancestor) {
    if (!index.isValid()) return false;
    for (WModelIndex up = index.parent(); up.isValid(); up = up.parent())
        if (up == ancestor) return true;
    return !ancestor.isValid();
}

bool WModelIndex::operator==(const WModelIndex& other) const {
    return mModel == other.mModel && mRow == other.mRow && mColumn == other.mColumn &&
           mInternalId == other.mInternalId && mRaw == other.mRaw;
}

bool WModelIndex::operator<(const WModelIndex& other) const {
    if (!mModel || !other.mModel || mModel != other.mModel || mRaw || other.mRaw)
        return std::tuple(mModel, mInternalId, mRow, mColumn) <
               std::tuple(other.mModel, other.mInternalId, other.mRow, other.mColumn);
    // Items of one table have the same id in every model that can be asked cheaply; a tree is walked.
    if (mInternalId == other.mInternalId)
        return std::tie(mRow, mColumn) < std::tie(other.mRow, other.mColumn);
    WModelIndex mine = *this, theirs = other;
    const int myDepth = depth(), theirDepth = other.depth();
    for (int d = myDepth; d > theirDepth; --d) mine = mine.parent();
    for (int d = theirDepth; d > myDepth; --d) theirs = theirs.parent();
    if (mine == theirs) return myDepth < theirDepth;
    for (;;) {
        const WModelIndex myParent = mine.parent(), theirParent = theirs.parent();
        if (myParent == theirParent || !myParent.isValid() || !theirParent.isValid()) break;
        mine = myParent;
        theirs = theirParent;
    }
    return std::tie(mine.mRow, mine.mColumn) < std::tie(theirs.mRow, theirs.mColumn);
}

void WModelIndex::encodeAsRawIndex() {
    if (!mModel || mRaw) return;
    mInternalId = reinterpret_cast<std::uintptr_t>(mModel->toRawIndex(*this));
    mRow = mColumn = -1;
    mRaw = true;
}

WModelIndex WModelIndex::decodeFromRawIndex() const {
    if (!mRaw || !mModel || !mInternalId) return {};
    return mModel->fromRawIndex(internalPointer());
}

} // namespace Wt
