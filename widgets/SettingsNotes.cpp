// What a settings table says below its fields: why a value cannot be saved, and what is stored beside an edit.

#include "db/HeldRecords.h"
#include "db/ZeqRows.h"
#include "widgets/WComboBoxPlus.h"
#include "widgets/WSettingsTable.h"

#include <Wt/WLineEdit>
#include <Wt/WText>
#include <Wt/WValidator>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr const char* kNoteStyle = "mirl-field-note";

std::string textOf(const json_t* value) {
    if (json_is_string(value)) return json_string_value(value);
    char* text = json_dumps(value, JSON_COMPACT | JSON_ENCODE_ANY | JSON_SORT_KEYS);
    const std::string result = text ? text : "";
    std::free(text);
    return result;
}

/// As the field would show it.
Wt::WString shownAs(const Wt::WWidget* widget, const std::vector<std::string>& stored) {
    if (stored.empty() ||
        std::any_of(stored.begin(), stored.end(), [&](const std::string& one) { return one != stored[0]; }))
        return Wt::WString::tr("page.different");
    if (const auto* box = dynamic_cast<const WComboBoxPlus*>(widget)) return box->textOf(stored[0]);
    return Wt::WString::fromUTF8(stored[0]);
}

bool isSecret(const Wt::WFormWidget* form) {
    const auto* line = dynamic_cast<const Wt::WLineEdit*>(form);
    return line && line->echoMode() == Wt::WLineEdit::Password;
}

} // namespace

std::vector<std::string> WSettingsTable::storedOf(const Field& field, const json_t* answer) {
    const bool nested = !field.place.path.empty();
    const ZeqPtr place = nested ? field.place.within(answer) : ZeqPtr();
    const json_t* const records = nested ? place.get() : answer;
    const auto valueOf = [&](const json_t* record) {
        return textOf(json_object_get(record, field.made.bound->key()));
    };
    std::vector<std::string> values;
    for (const ZeqRow row : ZeqRows(records)) values.push_back(valueOf(row.json()));
    if (values.empty() && records) values.push_back(valueOf(records)); // one record by itself
    return values;
}

void WSettingsTable::compareWithStored(const Indexes& indexes, Tell tell) {
    HeldRecords own;
    const HeldRecords::Use use(own);
    for (const Share& share : shares()) {
        const std::vector<Field*> edits = marked();
        if (std::none_of(edits.begin(), edits.end(), [&](Field* field) { return shareOf(*field) == share; }))
            continue;
        const json_t* const answer = fetchShare(share, recordsOf(share, indexes));
        if (!answer) continue;
        for (Field* field : edits) {
            if (!isRead(*field) || shareOf(*field) != share || !field->made.form ||
                isSecret(field->made.form))
                continue;
            const std::vector<std::string> now = storedOf(*field, answer);
            const bool changed = now != field->stored;
            if (changed || tell == Tell::Everything)
                field->remark = tr(changed ? "page.changed.meanwhile" : "page.stored")
                                    .arg(shownAs(field->made.widget, now));
        }
    }
    noteFields();
}

Wt::WString WSettingsTable::errorOf(const Field& field) const {
    const SettingsRow& row = *field.row;
    const WWidgetZeq* bound = field.made.bound;
    const bool touched = bound && const_cast<WWidgetZeq*>(bound)->hasChangedContent();
    // Of several records a field that differs is empty; only what the user typed is wrong.
    if (!mTableChanged || !isAsked(field) || (!touched && mShown.size() > 1) || isValid(field)) return {};
    Wt::WFormWidget* form = field.made.form;
    const bool empty = form->valueText().empty();
    if (row.repeats) return tr(empty ? "page.repeat" : "page.repeat.differs");
    if (empty) return tr("page.needed");
    const Wt::WString message =
        form->validator() ? form->validator()->validate(form->valueText()).message() : Wt::WString();
    if (row.top > row.bottom || !row.tooltip) return message;
    return tr(row.tooltip);
}

void WSettingsTable::noteFields() {
    for (Field& field : mFields) {
        Wt::WFormWidget* form = field.made.form;
        if (!form) continue;
        std::string text = errorOf(field).toUTF8();
        if (!field.remark.empty()) text += (text.empty() ? "" : "\n") + field.remark.toUTF8();
        if (text.empty() && !field.note) continue;
        if (!field.note) {
            field.note = new Wt::WText(dynamic_cast<Wt::WContainerWidget*>(form->parent()));
            field.note->setTextFormat(Wt::PlainText);
            field.note->setInline(false);
            field.note->setStyleClass(kNoteStyle);
            field.note->setAttributeValue("role", "status");
            form->setAttributeValue("aria-describedby", field.note->id());
        }
        field.note->setText(Wt::WString::fromUTF8(text));
    }
}
