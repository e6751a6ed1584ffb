#pragma once

#include "frame/RecordTable.h"

#include <string>
#include <vector>

/// One entry of a list between which the user moves entries.
struct MoverItem {
    unsigned index;   // what it stands for: a record's index, or a number of the page's own from 1
    std::string text; // UTF-8

    bool operator==(const MoverItem&) const = default;
};

/// How a list looks. Sizes in pixels.
struct MoverListLook {
    const char* header; // message key
    int width = 250;
    int height = 200;
    int textWidth = 320; // of the column at least: what is listed is whole
    bool sorted = true;  // by text; else the items keep their order
};

/// One of the two lists of a TwoListMover. Several rows can be selected.
class MoverList : public RecordTable {
public:
    explicit MoverList(const MoverListLook& look, Wt::WContainerWidget* parent = nullptr);

    /// Shows these instead of what was shown; the selection is lost, unless they are the same. Ten thousand
    /// take 10 ms.
    void setItems(const std::vector<MoverItem>& items);

protected:
    void layoutSizeChanged(int width, int height) override;

private:
    int mTextWidth;
    std::vector<MoverItem> mItems; // as they were given
};
