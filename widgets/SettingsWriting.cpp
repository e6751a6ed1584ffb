// Saving a settings table: what was changed and may be saved, record by record.

#include "db/ZeqExchange.h"
#include "widgets/WSettingsTable.h"
#include "widgets/ZeqField.h"

#include <algorithm>

unsigned WSettingsTable::writeToDatabase(const Indexes& indexes, Errors& errors) {
    if (!mTableChanged) return 0;
    const std::vector<Field*> edits = marked();
    const std::size_t refusals = errors.size();
    unsigned result = 0;
    if (mSpec.save == SettingsTableSpec::Save::OneExchangePerField)
        result = writeFields(indexes, errors);
    else
        for (const Share& share : shares()) result |= writeShare(share, recordsOf(share, indexes), errors);
    clearMarks();
    if (result == 0 && errors.size() == refusals) return 0;
    // What was typed is not lost, and can be saved again. Other records end the marks.
    mTableChanged = true;
    for (Field* field : edits) field->made.bound->setContentChanged();
    return result;
}

std::vector<WSettingsTable::Field*> WSettingsTable::marked() {
    std::vector<Field*> edits;
    for (Field& field : mFields)
        if (field.made.bound && field.made.bound->hasChangedContent()) edits.push_back(&field);
    return edits;
}

bool WSettingsTable::isWritten(const Field& field, bool several) const {
    const SettingsField& made = field.made;
    if (!isRead(field) || !made.bound->hasChangedContent() || field.row->repeats) return false;
    if (made.widget->isDisabled() || !isValid(field) || !isRepeated(field)) return false;
    const bool isNumber = dynamic_cast<ZeqEditField<unsigned>*>(made.bound) && made.form;
    return !(several && isNumber && made.form->valueText().empty());
}

unsigned WSettingsTable::writeShare(const Share& share, const Indexes& records, Errors& errors) {
    std::vector<const Field*> written;
    for (const Field& field : mFields)
        if (shareOf(field) == share && isWritten(field, records.size() > 1)) written.push_back(&field);
    if (written.empty()) return 0;
    unsigned result = 0;
    for (const unsigned index : records) {
        ZeqExchange exchange = ZeqExchange::setRecord(share.resource.c_str(), index, __func__);
        if (!exchange.ready()) return 1;
        for (const Field* field : written)
            field->made.bound->setZeqParam(field->place.into(exchange.params()));
        result |= exchange.send(errors);
        if (!exchange.response()) return 1;
    }
    return result;
}

unsigned WSettingsTable::writeFields(const Indexes& indexes, Errors& errors) {
    unsigned result = 0;
    for (const Field& field : mFields) {
        const Indexes records = recordsOf(shareOf(field), indexes);
        if (!records.empty() && isWritten(field, records.size() > 1))
            result |= field.made.bound->writeToDatabase(records, errors);
    }
    return result;
}

void WSettingsTable::keepMarksOf(const Indexes& indexes) {
    if (indexes != mShown) clearMarks();
}

void WSettingsTable::clearMarks() {
    mTableChanged = false;
    for (Field& field : mFields) {
        field.remark = Wt::WString();
        if (field.made.bound) field.made.bound->clearContentChanged();
    }
    noteFields();
}
