#include "views/settings/icons/WTxIconsDialog.h"

#include "views/settings/icons/WSysSettingsViewTxIcons.h"

namespace {

constexpr DialogFormHead kHead = {"settings.png", "settings.icons.title", "settings.icons.text"};

} // namespace

WTxIconsDialog::WTxIconsDialog() : DialogForm(kHead), mIcons(new WSysSettingsViewTxIcons(contents())) {
    addButton("[RSnnn]Close", Close);
}
