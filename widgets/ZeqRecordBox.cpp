#include "widgets/ZeqRecordBox.h"

#include "widgets/ZeqValue.h"

template <class Value>
ZeqRecordBox<Value>::ZeqRecordBox(const char* resource, const char* key, bool indexed,
                                  Wt::WContainerWidget* parent, Focus focus)
    : Wt::WComboBox(parent), WWidgetZeq(resource, key, indexed), mFocus(focus) {
    changed().connect(this, &ZeqRecordBox::contentChangedHandler);
}

template <class Value>
bool ZeqRecordBox<Value>::isLeftAlone(bool force) const {
    return (mFocus == Focus::KeepsBox && hasFocus()) || keepsEdit(force);
}

template <class Value>
unsigned ZeqRecordBox<Value>::readFromDatabase(const Indexes& indexes, Errors& errors, bool force) {
    if (isLeftAlone(force)) return 0;
    updateListOfChoices();
    if (hasNoRecord(indexes)) {
        showBlank();
        return 0;
    }
    Value value{};
    bool same = true;
    const unsigned result = zeqReadMerged(*this, records(indexes), value, same, errors);
    showMerged(result, same, value);
    if (result == 0) clearContentChanged();
    return result;
}

template <class Value>
void ZeqRecordBox<Value>::getZeqParam(const json_t* table, const Indexes& indexes, bool force) {
    if (isLeftAlone(force)) return;
    clearContentChanged();
    updateListOfChoices();
    if (hasNoRecord(indexes)) return showBlank();
    Value value{};
    bool same = true;
    const unsigned result = zeqExtract(table, records(indexes), key(), value, same);
    showMerged(result, same, value);
}

template <class Value>
void ZeqRecordBox<Value>::showMerged(unsigned result, bool same, const Value& value) {
    const int item = result == 0 && same ? itemOf(value) : -1;
    if (item >= 0)
        setCurrentIndex(item);
    else
        showBlank();
}

template <class Value>
void ZeqRecordBox<Value>::contentChangedHandler() {
    markEdited();
}

template class ZeqRecordBox<std::string>;
template class ZeqRecordBox<unsigned>;

int ZeqTextRecordBox::itemOf(const std::string& value) const {
    for (int i = 0; i < count(); ++i)
        if (storedText(itemText(i).toUTF8()) == value) return i;
    return -1;
}

unsigned ZeqTextRecordBox::writeToDatabase(const Indexes& indexes, Errors& errors) {
    if (!hasChangedContent() || hasNoRecord(indexes)) return 0;
    const std::string text = storedText(currentText().toUTF8());
    unsigned result = 1;
    for (const unsigned index : records(indexes)) {
        if (indexed() && text.empty()) break;
        result = zeqWrite(*this, index, text, errors);
        if (result != 0) break;
    }
    clearContentChanged();
    return result;
}

void ZeqTextRecordBox::setZeqParam(json_t* params) {
    if (!hasChangedContent() || blankIsShown()) return;
    zeqSetParam(params, key(), storedText(currentText().toUTF8()));
}
