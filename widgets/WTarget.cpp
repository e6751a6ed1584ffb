#include "widgets/WTarget.h"

#include "platform/client/ZeqObj.h"
#include "widgets/RecordChoices.h"

WTarget::WTarget(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent)
    : Wt::WComboBox(parent), WWidgetZeq(resource, key, indexed) {
    changed().connect(this, &WTarget::contentChangedHandler);
}

void WTarget::populateChoices(const std::vector<TargetItem>& targets) {
    clear();
    mBlankChoiceAdded = false;
    for (const TargetItem& target : targets) {
        if (target.conflict) continue;
        addItem(targetText(target.eid, target.name));
    }
}

std::string WTarget::eidOf(int item) const {
    return itemText(item).toUTF8().substr(0, kEidLength);
}

void WTarget::setCurrentChoiceByEid(const std::string& eid) {
    const int choices = mBlankChoiceAdded ? count() - 1 : count();
    for (int i = 0; i < choices; ++i) {
        if (eidOf(i) != eid) continue;
        setCurrentIndex(i);
        if (mBlankChoiceAdded) removeItem(choices);
        mBlankChoiceAdded = false;
        return;
    }
    if (!mBlankChoiceAdded) addItem(Wt::WString());
    mBlankChoiceAdded = true;
    setCurrentIndex(choices);
}

unsigned WTarget::readFromDatabase(const Indexes&, Errors&, bool) {
    return 0;
}

unsigned WTarget::writeToDatabase(const Indexes&, Errors&) {
    return 0;
}

void WTarget::getZeqParam(const json_t*, const Indexes&, bool) {}

void WTarget::setZeqParam(json_t* params) {
    if (currentIndex() < 0 || blankIsShown()) return;
    ZeqObj_setString(params, key(), eidOf(currentIndex()).c_str());
}

void WTarget::contentChangedHandler() {
    markEdited();
}
