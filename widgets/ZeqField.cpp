#include "widgets/ZeqField.h"

#include "widgets/ZeqValue.h"

template <class Value>
unsigned ZeqField<Value>::readFromDatabase(const Indexes& indexes, Errors& errors, bool force) {
    if (keepsEdit(force)) return 0;
    if (hasNoRecord(indexes)) {
        showNothing();
        clearContentChanged();
        return 0;
    }
    Value value{};
    bool same = true;
    const unsigned result = zeqReadMerged(*this, records(indexes), value, same, errors);
    if (result != 0) {
        if (mFailedRead == FailedRead::ShowsNothing) showNothing();
        return result;
    }
    if (same)
        showValue(value);
    else
        showDifferent();
    clearContentChanged();
    return 0;
}

template <class Value>
void ZeqField<Value>::getZeqParam(const json_t* table, const Indexes& indexes, bool force) {
    if (keepsEdit(force)) return;
    if (hasNoRecord(indexes)) {
        showNothing();
        return;
    }
    Value value{};
    bool same = true;
    const unsigned result = zeqExtract(table, indexes, key(), value, same);
    if (result != 0)
        showNothing();
    else if (same)
        showValue(value);
    else
        showDifferent();
    clearContentChanged();
}

template <class Value>
unsigned ZeqEditField<Value>::writeToDatabase(const Indexes& indexes, Errors& errors) {
    if (!this->hasChangedContent()) return 0;
    const Value value = enteredValue();
    unsigned result = 0;
    for (const unsigned index : this->records(indexes))
        if ((result = zeqWrite(*this, index, value, errors)) != 0) break;
    // A failed write does not leave the field marked: the page rereads and shows what is stored.
    if (!this->hasNoRecord(indexes)) this->clearContentChanged();
    return result;
}

template <class Value>
void ZeqEditField<Value>::setZeqParam(json_t* params) {
    if (this->hasChangedContent()) zeqSetParam(params, this->key(), enteredValue());
}

template class ZeqField<std::string>;
template class ZeqField<unsigned>;
template class ZeqEditField<std::string>;
template class ZeqEditField<unsigned>;
