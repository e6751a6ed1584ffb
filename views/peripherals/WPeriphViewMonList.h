#pragma once

#include "frame/WObjListContextPanel.h"

#include <map>
#include <set>
#include <string>

class ActionResults;

/// List of stored monitors.
class WPeriphViewMonList : public WObjListContextPanel {
public:
    enum Column { Index, Name, Description, Manufacturer, Product, Type, kColumnCount };

    explicit WPeriphViewMonList(const Wt::WString& title, Wt::WContainerWidget* parent = nullptr);

    /// Deletes the selected records; the list is to be read afterwards.
    void selectedMonsDelete(ActionResults& results);

    bool protectedEdidIsSelected() const;
    /// 0 if exactly one is selected, else 1.
    unsigned getEdidIndexOfCurrentlySelectedRecord(unsigned& index) const;
    unsigned getTypeOfCurrentlySelectedRecord(std::string& text) const;
    /// False when the last read failed, as a whole or in part.
    bool isComplete() const { return mComplete; }

    void readFromDatabase() override;

    /// What the columns tell of a block.
    struct Block {
        std::string manufacturer, product, type;
    };

private:
    /// Asks for the blocks that are not known yet, and forgets those of other records.
    bool readBlocks(const std::set<unsigned>& records);

    std::map<unsigned, Block> mBlocks; // by record: a block never changes, and no index is used again
    std::set<unsigned> mProtected;     // records
    bool mComplete = false;
};
