#pragma once

#include <Wt/WAbstractItemModel.h>

#include <string>
#include <vector>

/// Keeps a copy of a flat model by its signals alone, as a view does. If a signal is missing, doubled or out
/// of order, the copy differs from the model, or `complaint` says what was wrong.
class ModelMirror : public Wt::WObject {
public:
    explicit ModelMirror(Wt::WAbstractItemModel& model);

    const std::vector<std::string>& rows() const { return mRows; }
    std::vector<std::string> modelRows() const; ///< each row's cells, joined
    std::string complaint;
    int layoutChanges = 0, insertions = 0, removals = 0, changes = 0;

private:
    std::string rowText(int row) const;
    void expect(const char* what, bool good);
    void aboutToInsert(const Wt::WModelIndex& parent, int first, int last);
    void inserted(const Wt::WModelIndex& parent, int first, int last);
    void aboutToRemove(const Wt::WModelIndex& parent, int first, int last);
    void removed(const Wt::WModelIndex& parent, int first, int last);
    void changed(const Wt::WModelIndex& topLeft, const Wt::WModelIndex& bottomRight);
    void aboutToLayout();
    void laidOut();
    void reset();

    Wt::WAbstractItemModel& mModel;
    std::vector<std::string> mRows;
    std::string mOpen;
    int mFirst = -1, mLast = -1;
};
