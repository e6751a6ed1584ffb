// What the rows of a settings table decide about each other: enabled, needed, valid.

#include "widgets/WComboBoxPlus.h"
#include "widgets/WLineEditPlus.h"
#include "widgets/WSettingsTable.h"

#include <Wt/WValidator>

#include <cstring>

namespace {

constexpr const char* kInvalidStyle = "Wt-invalid";

bool isEmpty(const Wt::WFormWidget* form) {
    return form && form->valueText().empty();
}

} // namespace

const WSettingsTable::Field* WSettingsTable::findField(const char* key, const Field& from) const {
    const auto has = [key](const Field& field) {
        return field.made.widget && std::strcmp(field.row->key, key) == 0;
    };
    const Field* const place = &from;
    for (const Field* field = place; field-- != mFields.data();)
        if (has(*field)) return field;
    for (const Field* field = place + 1; field != mFields.data() + mFields.size(); ++field)
        if (has(*field)) return field;
    return nullptr;
}

bool WSettingsTable::isMade(const SettingsChoice& choice, const Field& from) const {
    const Wt::WWidget* widget = findField(choice.key, from)->made.widget;
    const auto* box = dynamic_cast<const WComboBoxPlus*>(widget);
    if (!box) return choice.unless;
    const bool made = choice.item >= 0 ? box->currentIndex() == choice.item : box->selection() == choice.is;
    return made != choice.unless;
}

bool WSettingsTable::isAsked(const Field& field) const {
    const SettingsChoice& choice = field.row->enabledWhen;
    if (!field.made.form || (choice.key && !isMade(choice, field))) return false;
    return choice.follows == SettingsChoice::AtNextRead ? field.editable : !field.made.widget->isDisabled();
}

bool WSettingsTable::isValid(const Field& field) const {
    Wt::WFormWidget* form = field.made.form;
    if (!form) return true;
    if (form->validator() && form->validate() != Wt::WValidator::Valid) return false;
    const SettingsRow& row = *field.row;
    if (row.neededWhen.key && isMade(row.neededWhen, field) && isEmpty(form)) return false;
    if (!row.repeats || findField(row.repeats, field)->made.form->valueText() == form->valueText())
        return true;
    form->addStyleClass(kInvalidStyle); // which its own validator has just taken away
    return false;
}

// A password that another field must repeat is saved only when it does.
bool WSettingsTable::isRepeated(const Field& field) const {
    for (const Field& other : mFields)
        if (other.row->repeats && findField(other.row->repeats, other) == &field && !isValid(other))
            return false;
    return true;
}

bool WSettingsTable::isAllValid() {
    for (const Field& field : mFields)
        if (isAsked(field) && !isValid(field)) return false;
    return true;
}

bool WSettingsTable::isAnyValid() {
    bool asked = false;
    for (const Field& field : mFields) {
        if (!field.row->judgedForSeveral || !isAsked(field) || !field.made.form->validator()) continue;
        if (isValid(field)) return true;
        asked = true;
    }
    return !asked;
}

void WSettingsTable::lock(const Indexes& indexes) {
    for (Field& field : mFields) {
        const SettingsEditable editable = field.row->editable ? field.row->editable : mSpec.editable;
        if (!field.made.widget || !editable) continue;
        field.editable = editable(indexes);
        const SettingsChoice& choice = field.row->enabledWhen;
        if (!choice.key || choice.follows == SettingsChoice::JudgedOnly)
            field.made.widget->setDisabled(!field.editable);
    }
}

void WSettingsTable::follow(Field& field, bool atRead) {
    const SettingsRow& row = *field.row;
    const SettingsField& made = field.made;
    if (row.neededWhen.key && made.form && made.form->validator())
        made.form->validator()->setMandatory(isMade(row.neededWhen, field));
    const auto follows = row.enabledWhen.follows;
    const bool now = follows == SettingsChoice::AtOnce || (follows == SettingsChoice::AtNextRead && atRead);
    if (row.enabledWhen.key && now) {
        const bool enabled = field.editable && isMade(row.enabledWhen, field);
        made.widget->setDisabled(!enabled);
        auto* line = dynamic_cast<WLineEditPlus*>(made.form);
        if (!enabled && row.emptyUnlessEnabled && line) line->setText("");
    }
    if (!row.repeats) return;
    const Field& first = *findField(row.repeats, field);
    made.widget->setDisabled(first.made.widget->isDisabled() || !isValid(first));
    if (isValid(field))
        made.form->removeStyleClass(kInvalidStyle);
    else
        made.form->addStyleClass(kInvalidStyle);
}

void WSettingsTable::followChoices(bool atRead) {
    for (Field& field : mFields)
        if (field.made.widget) follow(field, atRead);
    noteFields();
}
