#pragma once

#include "frame/DialogForm.h"

class WSysSettingsViewTxIcons;

/// The custom icons of Transmitters, to be replaced. Run with exec().
class WTxIconsDialog : public DialogForm {
public:
    enum Button { None, Close };

    WTxIconsDialog();

    WSysSettingsViewTxIcons* icons() const { return mIcons; }

private:
    WSysSettingsViewTxIcons* mIcons;
};
