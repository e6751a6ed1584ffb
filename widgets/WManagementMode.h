#pragma once

#include "widgets/WWidgetZeq.h"

#include <Wt/WComboBox>

/// Whether the Switch is under a manager, and how far. Here a Switch can only be taken out of management.
class WManagementMode : public Wt::WComboBox, public WWidgetZeq {
public:
    /// A singleton's field.
    WManagementMode(const char* resource, const char* key, Wt::WContainerWidget* parent = nullptr);

    unsigned readFromDatabase(const Indexes& indexes, Errors& errors, bool force) override;
    unsigned writeToDatabase(const Indexes& indexes, Errors& errors) override;
    /// Clears the mark, unlike the other bound widgets.
    void setZeqParam(json_t* params) override;
    /// Does nothing.
    void getZeqParam(const json_t* table, const Indexes& indexes, bool force) override;
    virtual void contentChangedHandler();

private:
    /// The user chose to leave management. Clears the mark.
    bool takeUnenrolling();
};
