#include "widgets/WComboBoxZeq.h"

#include "platform/client/EventLog.h"
#include "platform/client/ZeqObj.h"
#include "widgets/ZeqValue.h"

WComboBoxZeq::WComboBoxZeq(const char* resource, const char* key, Choices choices, bool indexed,
                           Wt::WContainerWidget* parent)
    : WComboBoxPlus(choices, parent), WWidgetZeq(resource, key, indexed) {
    changed().connect(this, &WComboBoxZeq::contentChangedHandler);
}

bool WComboBoxZeq::isLeftAlone(bool force) const {
    return hasFocus() || keepsEdit(force);
}

unsigned WComboBoxZeq::readFromDatabase(const Indexes& indexes, Errors& errors, bool force) {
    if (isLeftAlone(force)) return 0;
    if (hasNoRecord(indexes)) {
        setCurrentIndex(0);
        clearContentChanged();
        return 1;
    }
    std::string dbValue;
    bool same = true;
    if (const unsigned result = zeqReadMerged(*this, records(indexes), dbValue, same, errors)) return result;
    if (same)
        showValue(dbValue, __func__);
    else
        showBlank();
    clearContentChanged();
    return 0;
}

void WComboBoxZeq::getZeqParam(const json_t* table, const Indexes& indexes, bool force) {
    if (isLeftAlone(force)) return;
    if (hasNoRecord(indexes)) {
        setCurrentIndex(0);
        return;
    }
    std::string dbValue;
    bool same = true;
    const unsigned result = zeqExtract(table, indexes, key(), dbValue, same);
    if (result == 0 && same)
        showValue(dbValue, __func__);
    else
        showBlank();
    clearContentChanged();
}

unsigned WComboBoxZeq::writeToDatabase(const Indexes& indexes, Errors& errors) {
    if (!hasChangedContent() || hasNoRecord(indexes)) return 0;
    unsigned result = 1;
    if (const char* chosen = chosenValue())
        for (const unsigned index : records(indexes))
            result = zeqWrite(*this, index, std::string(chosen), errors);
    clearContentChanged();
    return result;
}

void WComboBoxZeq::setZeqParam(json_t* params) {
    const char* chosen = chosenValue();
    if (hasChangedContent() && chosen) ZeqObj_setString(params, key(), chosen);
}

const char* WComboBoxZeq::chosenValue() const {
    const Triplet* choice = currentChoice();
    return choice ? choice->dbValue : nullptr;
}

void WComboBoxZeq::contentChangedHandler() {
    markEdited();
}

void WComboBoxZeq::showValue(const std::string& dbValue, const char* caller) {
    removeBlank();
    if (selectByDbValue(dbValue)) return;
    EventLog_write(2, 7, caller, "Unknown value for %s/%s: %s. Using default.", resource(), key(), dbValue);
    setCurrentIndex(0);
}

bool WComboBoxZeq::selectByDbValue(const std::string& dbValue) {
    for (int i = 0; i < choiceCount(); ++i) {
        const char* held = choices()[static_cast<std::size_t>(i)].dbValue;
        if (!held || dbValue != held) continue;
        setCurrentIndex(i);
        return true;
    }
    return false;
}

void WComboBoxZeq::showBlank() {
    if (!mBlankChoiceAdded) addItem(Wt::WString::tr("page.different"));
    mBlankChoiceAdded = true;
    setCurrentIndex(choiceCount());
}

void WComboBoxZeq::removeBlank() {
    if (mBlankChoiceAdded) removeItem(choiceCount());
    mBlankChoiceAdded = false;
}
