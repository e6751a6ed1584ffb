#pragma once

#include "widgets/WWidgetZeq.h"

#include <Wt/WContainerWidget>

class WKeyCodeSelector;

/// The custom hot key of the on-screen display: one or two key codes in sequence, kept as
/// "sequence" (2 bytes) and "length" (0 to 2). Filled only from a held table; the table's rows are
/// those that hold the two keys.
class WOsdActivateHotkeyCustom : public Wt::WContainerWidget, public WWidgetZeq {
public:
    WOsdActivateHotkeyCustom(const char* resource, const char* key, bool indexed,
                             Wt::WContainerWidget* parent = nullptr);

    /// Does nothing and gives 0.
    unsigned readFromDatabase(const Indexes& indexes, Errors& errors, bool force) override;
    void getZeqParam(const json_t* table, const Indexes& indexes, bool force) override;
    /// A lone key in the second box moves to the front.
    void setZeqParam(json_t* params) override;
    virtual void contentChangedHandler();
    void setEnabled(bool enabled);
    void resize(const Wt::WLength& width, const Wt::WLength& height) override; // of each box

    bool isValid() const { return true; }
    bool hasFocus() const override;

private:
    WKeyCodeSelector* mFirst;
    WKeyCodeSelector* mSecond;
};
