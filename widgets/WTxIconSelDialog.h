#pragma once

#include <Wt/WDialog>

/// Choice of a Transmitter icon; modal. Escape leaves without one.
class WTxIconSelDialog : public Wt::WDialog {
public:
    static constexpr unsigned kIcons = 32;

    WTxIconSelDialog();

    void iconClickedHandler(unsigned number);

    /// Number of the icon, from 1; 0 = none was chosen.
    unsigned selection() const { return mSelection; }

private:
    unsigned mSelection = 0;
};
