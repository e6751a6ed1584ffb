#pragma once

#include "widgets/WWidgetZeq.h"

#include <Wt/WComboBox>

/// One choice over two fields of this Switch: whether it is managed, and its mode as master or slave. A pair
/// that is no choice shows as a third item, there for as long as it is needed. Stored only by
/// writeToDatabase.
class WSwxCombinedMode : public Wt::WComboBox, public WWidgetZeq {
public:
    explicit WSwxCombinedMode(Wt::WContainerWidget* parent = nullptr);

    unsigned readFromDatabase(const Indexes& indexes, Errors& errors, bool force) override;
    unsigned writeToDatabase(const Indexes& indexes, Errors& errors) override;
    /// Does nothing.
    void getZeqParam(const json_t* table, const Indexes& indexes, bool force) override;
    virtual void contentChangedHandler();
};
