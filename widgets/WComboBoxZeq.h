#pragma once

#include "widgets/WComboBoxPlus.h"
#include "widgets/WWidgetZeq.h"

/// A choice, bound to a text of the database. Where records differ an item that says so behind the table's is added
/// and shown, for as long as they do.
class WComboBoxZeq : public WComboBoxPlus, public WWidgetZeq {
public:
    WComboBoxZeq(const char* resource, const char* key, Choices choices, bool indexed,
                 Wt::WContainerWidget* parent = nullptr);

    /// Untouched while the box has the focus. An empty index list selects the first item and gives 1.
    unsigned readFromDatabase(const Indexes& indexes, Errors& errors, bool force) override;
    /// To every record, also behind a failure: the last write's result counts. 1 when the current item has
    /// nothing to store, as the blank one.
    unsigned writeToDatabase(const Indexes& indexes, Errors& errors) override;
    void setZeqParam(json_t* params) override;
    void getZeqParam(const json_t* table, const Indexes& indexes, bool force) override;
    virtual void contentChangedHandler();

protected:
    void showBlank();
    void removeBlank();
    /// Selects the row of a database string: true. Without one the selection stays: false.
    bool selectByDbValue(const std::string& dbValue);
    bool blankIsShown() const { return mBlankChoiceAdded && currentIndex() == choiceCount(); }

private:
    bool isLeftAlone(bool force) const;
    /// What is to be stored; 0 when the blank item is current or the choice has no database string.
    const char* chosenValue() const;
    void showValue(const std::string& dbValue, const char* caller);

    bool mBlankChoiceAdded = false;
};

/// A bound box over one constant table.
template <const auto& kChoices>
class ZeqSelector : public WComboBoxZeq {
public:
    ZeqSelector(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent = nullptr)
        : WComboBoxZeq(resource, key, kChoices, indexed, parent) {}
};
