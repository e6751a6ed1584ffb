#include "widgets/WSettingsTable.h"

#include "widgets/WLookupText.h"
#include "widgets/WTextAreaZeq.h"

#include <Wt/WIntValidator>
#include <Wt/WRegExpValidator>
#include <Wt/WTableCell>

#include <cstring>
#include <stdexcept>

namespace {

constexpr const char* kHeadingStyle = "mirl-attribute-table-heading";
constexpr const char* kLabelStyle = "mirl-attribute-table-label";
constexpr const char* kGroupStyle = "mirl-attribute-table-group-label";

int digitsOf(int number) {
    return static_cast<int>(std::to_string(number).size());
}

void setMaxLength(Wt::WFormWidget* form, int characters) {
    if (auto* line = dynamic_cast<Wt::WLineEdit*>(form))
        line->setMaxLength(characters);
    else if (auto* area = dynamic_cast<WTextAreaZeq*>(form))
        area->setMaxLength(static_cast<unsigned>(characters));
}

void setName(const SettingsField& made, const Wt::WText* label) {
    if (!label || made.namedBy == NamedBy::ItsText) return;
    const std::string value = made.namedBy == NamedBy::LabelAndValue ? " " + made.widget->id() : "";
    Wt::WWidget* named = made.form ? made.form : made.widget;
    named->setAttributeValue("aria-labelledby", label->id() + value);
}

} // namespace

WSettingsTable::WSettingsTable(const SettingsTableSpec& spec, std::span<const SettingsRow> rows,
                               Wt::WContainerWidget* parent)
    : Wt::WTable(parent), mSpec(spec), mColumns(spec.columns.empty() ? 1 : spec.columns.size()) {
    mFields.reserve(rows.size() * mColumns);
    addHeadings();
    for (const SettingsRow& row : rows) addRow(row);
    for (const Field& field : mFields)
        for (const char* key : {field.row->enabledWhen.key, field.row->neededWhen.key, field.row->repeats})
            if (key && !findField(key, field))
                throw std::logic_error(std::string(field.row->label) + " follows no row: " + key);
}

void WSettingsTable::addHeadings() {
    setHeaderCount(1);
    int column = 0;
    for (const char* heading : mSpec.headings) {
        if (!heading) break;
        Wt::WTableCell* cell = elementAt(0, column++);
        cell->setStyleClass(kHeadingStyle);
        if (*heading) new Wt::WText(tr(heading), cell);
    }
}

void WSettingsTable::addRow(const SettingsRow& row) {
    const bool beside = row.column > 1;
    const int place = beside ? rowCount() - 1 : rowCount();
    Wt::WText* label = nullptr;
    if (!beside && *row.label) {
        label = new Wt::WText(tr(row.label), elementAt(place, 0));
        label->setStyleClass(row.make ? kLabelStyle : kGroupStyle);
    } else {
        elementAt(place, 0);
        if (!elementAt(place, 0)->children().empty())
            label = dynamic_cast<Wt::WText*>(elementAt(place, 0)->children().front());
    }
    for (std::size_t column = 0; column < mColumns; ++column) addField(row, column, place, label);
}

void WSettingsTable::addField(const SettingsRow& row, std::size_t column, int place, const Wt::WText* label) {
    const char* resource = mSpec.columns.empty() ? mSpec.resource : mSpec.columns[column];
    if (row.resource) resource = row.resource;
    const bool singleton = row.singleton || !mSpec.indexed;
    Field field{.made = {}, .row = &row, .place = SettingsPlace(resource), .singleton = singleton};
    if (row.make) {
        Wt::WTableCell* cell = elementAt(place, static_cast<int>(column) + row.column);
        SettingsField& made = field.made;
        made = row.make(resource, row.key, !singleton, cell);
        const char* cellStyle = mSpec.cellStyle ? mSpec.cellStyle : made.cellStyle;
        cell->setStyleClass(row.cellStyle ? row.cellStyle : cellStyle);
        if (const char* style = row.style ? row.style : made.style) made.widget->addStyleClass(style);
        if (const int width = row.width ? row.width : mSpec.width) made.widget->setWidth(width);
        if (row.height) made.widget->setHeight(row.height);
        if (row.tooltip) made.widget->setToolTip(tr(row.tooltip));
        if (row.differs && made.lookup) made.lookup->setDiffersText(Wt::WString::fromUTF8(row.differs));
        setName(made, label);
        limit(row, made);
        listen(made);
    }
    mFields.push_back(std::move(field));
}

void WSettingsTable::listen(const SettingsField& made) {
    if (made.bound)
        made.bound->contentChanged().connect(this, &WSettingsTable::contentChangedHandler);
    else if (made.form)
        made.form->changed().connect(this, &WSettingsTable::contentChangedHandler);
    if (auto* line = dynamic_cast<Wt::WLineEdit*>(made.form))
        line->enterPressed().connect(this, &WSettingsTable::enterHandler);
}

void WSettingsTable::limit(const SettingsRow& row, SettingsField& made) {
    if (row.maxLength) setMaxLength(made.form, row.maxLength);
    Wt::WValidator* validator = nullptr;
    if (row.pattern) {
        validator = new Wt::WRegExpValidator(Wt::WString::fromUTF8(row.pattern), made.widget);
    } else if (row.top > row.bottom) {
        validator = new Wt::WIntValidator(row.bottom, row.top, made.widget);
        setMaxLength(made.form, digitsOf(row.top));
    }
    if (validator && made.form) made.form->setValidator(validator);
    if (row.mandatory && made.form && made.form->validator()) made.form->validator()->setMandatory(true);
}

void WSettingsTable::contentChangedHandler() {
    mTableChanged = true;
    followChoices();
    mContentChangedSignal.emit();
}

bool WSettingsTable::anyWidgetHasFocus() const {
    for (const Field& field : mFields) {
        const SettingsField& made = field.made;
        if (made.form && made.form->hasFocus()) return true;
        if (made.widget && made.bound && made.widget->hasFocus()) return true;
    }
    return false;
}

std::size_t WSettingsTable::rowOf(const char* key) const {
    std::size_t row = 0;
    while (row < mFields.size() && std::strcmp(mFields[row].row->key, key) != 0) row += mColumns;
    return row / mColumns;
}

void WSettingsTable::setRowEnabled(const char* key, bool enabled) {
    for (std::size_t column = 0; column < mColumns; ++column)
        if (auto* shown = widget<Wt::WWidget>(key, column)) shown->setDisabled(!enabled);
}

void WSettingsTable::clearValues() {
    for (const Field& field : mFields)
        if (auto* text = dynamic_cast<Wt::WText*>(field.made.widget)) text->setText("");
}
