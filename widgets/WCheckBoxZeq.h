#pragma once

#include "widgets/WWidgetZeq.h"

#include <Wt/WCheckBox>

/// On or off. Reads and writes booleans with its own exchanges, but takes "enabled" or "disabled" from a held
/// response. Partially checked: records that differ, or no record.
class WCheckBoxZeq : public Wt::WCheckBox, public WWidgetZeq {
public:
    WCheckBoxZeq(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent = nullptr);

    unsigned readFromDatabase(const Indexes& indexes, Errors& errors, bool force) override;
    /// To every record, also behind a failure. Partially checked writes false.
    unsigned writeToDatabase(const Indexes& indexes, Errors& errors) override;
    /// Partially checked adds nothing.
    void setZeqParam(json_t* params) override;
    /// Unchecked where the records differ.
    void getZeqParam(const json_t* table, const Indexes& indexes, bool force) override;
    virtual void contentChangedHandler();
};
