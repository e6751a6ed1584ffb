#include "widgets/WSwxCombinedMode.h"

#include "db/Db.h"

namespace {

constexpr int kUnmanagedMasterItem = 0;
constexpr int kThirdItem = 2;
constexpr unsigned kThisSwx = 1;

struct Pair {
    const char* managedSetting;
    const char* mode;
    int item;
    const char* thirdText; // 0 for the fixed items
};

constexpr Pair kPairs[] = {
    {"non_managed", "master", kUnmanagedMasterItem, nullptr},
    {"verified", "slave", 1, nullptr},
    {"verified", "master", kThirdItem, "managedmode.setting.mode.managed.master"},
};

} // namespace

WSwxCombinedMode::WSwxCombinedMode(Wt::WContainerWidget* parent)
    : Wt::WComboBox(parent), WWidgetZeq("systemGlobals", "managedSetting", false) {
    addItem(tr("managedmode.setting.mode.unmanaged_master"));
    addItem(tr("managedmode.setting.mode.managed.slave"));
    changed().connect(this, &WSwxCombinedMode::contentChangedHandler);
}

unsigned WSwxCombinedMode::readFromDatabase(const Indexes&, Errors& errors, bool force) {
    if (keepsEdit(force)) return 0;
    std::string managedSetting;
    std::string mode;
    if (Db::db.readString(resource(), 0, key(), managedSetting, errors) != 0) return 1;
    if (Db::db.readString("swx", kThisSwx, "mode", mode, errors) != 0) return 1;
    Pair shown = {"", "", kThirdItem, nullptr};
    for (const Pair& pair : kPairs)
        if (managedSetting == pair.managedSetting && mode == pair.mode) shown = pair;
    if (shown.item == kThirdItem && count() == kThirdItem)
        addItem(shown.thirdText ? tr(shown.thirdText) : Wt::WString());
    setCurrentIndex(shown.item);
    if (shown.item != kThirdItem && count() > kThirdItem) removeItem(kThirdItem);
    clearContentChanged();
    return 0;
}

unsigned WSwxCombinedMode::writeToDatabase(const Indexes&, Errors& errors) {
    if (!hasChangedContent()) return 0;
    clearContentChanged();
    if (currentIndex() != kUnmanagedMasterItem) return 0;
    if (const unsigned result = Db::db.writeString(resource(), 0, key(), "non_managed", errors))
        return result;
    return Db::db.writeString("swx", kThisSwx, "mode", "master", errors);
}

void WSwxCombinedMode::getZeqParam(const json_t*, const Indexes&, bool) {}

void WSwxCombinedMode::contentChangedHandler() {
    markEdited();
}
