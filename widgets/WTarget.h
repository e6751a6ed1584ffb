#pragma once

#include "widgets/TargetItem.h"
#include "widgets/WWidgetZeq.h"

#include <Wt/WComboBox>

/// The target of an OSD short cut: "EID (name)". Its table's owner fills and shows it;
/// only the EID is stored.
class WTarget : public Wt::WComboBox, public WWidgetZeq {
public:
    WTarget(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent = nullptr);

    /// Leaves out targets in conflict.
    void populateChoices(const std::vector<TargetItem>& targets);
    /// An EID that is not among the choices shows the blank item, added for as long as it is needed.
    void setCurrentChoiceByEid(const std::string& eid);

    /// Do nothing and give 0.
    unsigned readFromDatabase(const Indexes& indexes, Errors& errors, bool force) override;
    unsigned writeToDatabase(const Indexes& indexes, Errors& errors) override;
    void getZeqParam(const json_t* table, const Indexes& indexes, bool force) override;
    /// Also an unchanged choice; nothing on the blank item.
    void setZeqParam(json_t* params) override;
    virtual void contentChangedHandler();

private:
    bool blankIsShown() const { return mBlankChoiceAdded && currentIndex() == count() - 1; }
    std::string eidOf(int item) const;

    bool mBlankChoiceAdded = false; // behind the others
};
