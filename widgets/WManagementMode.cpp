#include "widgets/WManagementMode.h"

#include "db/Db.h"
#include "platform/client/ZeqObj.h"

namespace {

constexpr int kUnmanagedItem = 0;
constexpr int kManagedItem = 1;
constexpr const char* kUnenrolling = "unenrolling";

struct State {
    const char* dbValue;
    int item;
    const char* managedText; // what the managed item then reads
};

constexpr State kStates[] = {
    {"non_managed", kUnmanagedItem, "[RSnnn]Managed"},
    {"enrolling", kManagedItem, "[RSnnn]Managed (enrolling)"},
    {"managed", kManagedItem, "[RSnnn]Managed (exchanging certificates)"},
    {"verified", kManagedItem, "[RSnnn]Managed (fully enrolled)"},
    {kUnenrolling, kManagedItem, "[RSnnn]Managed (unenrolling)"},
};

} // namespace

WManagementMode::WManagementMode(const char* resource, const char* key, Wt::WContainerWidget* parent)
    : Wt::WComboBox(parent), WWidgetZeq(resource, key, false) {
    addItem(tr("[RSnnn]Unmanaged"));
    addItem(tr("[RSnnn]Managed"));
    changed().connect(this, &WManagementMode::contentChangedHandler);
}

unsigned WManagementMode::readFromDatabase(const Indexes&, Errors& errors, bool force) {
    if (keepsEdit(force)) return 0;
    std::string value;
    if (Db::db.readString(resource(), 0, key(), value, errors) != 0) return 1;
    int item = kUnmanagedItem;
    for (const State& state : kStates) {
        if (value != state.dbValue) continue;
        item = state.item;
        setItemText(kManagedItem, tr(state.managedText));
    }
    setCurrentIndex(item);
    clearContentChanged();
    return 0;
}

bool WManagementMode::takeUnenrolling() {
    const bool leaves = hasChangedContent() && currentIndex() == kUnmanagedItem;
    clearContentChanged();
    return leaves;
}

unsigned WManagementMode::writeToDatabase(const Indexes&, Errors& errors) {
    return takeUnenrolling() ? Db::db.writeString(resource(), 0, key(), kUnenrolling, errors) : 0;
}

void WManagementMode::setZeqParam(json_t* params) {
    if (takeUnenrolling()) ZeqObj_setString(params, key(), kUnenrolling);
}

void WManagementMode::getZeqParam(const json_t*, const Indexes&, bool) {}

void WManagementMode::contentChangedHandler() {
    markEdited();
}
