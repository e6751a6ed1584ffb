#include "widgets/WSettingsTable.h"

#include "db/PortTables.h"
#include "db/ZeqExchange.h"
#include "platform/client/ZeqReq.h"
#include "widgets/ReadTogether.h"
#include "widgets/WLookupText.h"
#include "widgets/WTextAreaZeq.h"

#include <Wt/WIntValidator>
#include <Wt/WRegExpValidator>
#include <Wt/WTableCell>
#include <Wt/WTableRow>

namespace {

constexpr const char* kHeadingStyle = "mirl-attribute-table-heading";
constexpr const char* kLabelStyle = "mirl-attribute-table-label";
constexpr const char* kGroupStyle = "mirl-attribute-table-group-label";

int digitsOf(int number) {
    return static_cast<int>(std::to_string(number).size());
}

void setMaxLength(Wt::WWidget* widget, int characters) {
    if (auto* line = dynamic_cast<Wt::WLineEdit*>(widget))
        line->setMaxLength(characters);
    else if (auto* area = dynamic_cast<WTextAreaZeq*>(widget))
        area->setMaxLength(static_cast<unsigned>(characters));
}

void setName(const SettingsField& made, const Wt::WText* label) {
    if (made.namedBy == NamedBy::ItsText) return;
    const std::string value = made.namedBy == NamedBy::LabelAndValue ? " " + made.widget->id() : "";
    made.widget->setAttributeValue("aria-labelledby", label->id() + value);
}

// The object of a request that takes the fields: "params", or a sub-object of it.
json_t* fieldsOf(const ZeqExchange& exchange, const SettingsTableSpec& spec) {
    json_t* place = exchange.params();
    for (const char* step : spec.path) {
        if (!step) break;
        json_t* inner = ZeqObj_new();
        ZeqObj_setObject(place, step, inner);
        place = inner;
    }
    return place;
}

} // namespace

WSettingsTable::WSettingsTable(const SettingsTableSpec& spec, std::span<const SettingsRow> rows,
                               Wt::WContainerWidget* parent)
    : Wt::WTable(parent), mSpec(spec) {
    mFields.reserve(rows.size());
    addHeadings();
    for (const SettingsRow& row : rows) addRow(row);
}

void WSettingsTable::addHeadings() {
    setHeaderCount(1);
    for (int column = 0; column < 2; ++column) {
        Wt::WTableCell* cell = elementAt(0, column);
        cell->setStyleClass(kHeadingStyle);
        new Wt::WText(tr(mSpec.headings[column]), cell);
    }
}

void WSettingsTable::addRow(const SettingsRow& row) {
    const int place = rowCount();
    auto* label = new Wt::WText(tr(row.label), elementAt(place, 0));
    label->setStyleClass(row.make ? kLabelStyle : kGroupStyle);
    if (!row.make) {
        mFields.emplace_back();
        return;
    }
    Wt::WTableCell* cell = elementAt(place, 1);
    const char* resource = mSpec.rowResource ? mSpec.rowResource : mSpec.resource;
    SettingsField made = row.make(row.resource ? row.resource : resource, row.key, mSpec.indexed, cell);
    cell->setStyleClass(row.cellStyle ? row.cellStyle : made.cellStyle);
    if (const char* style = row.style ? row.style : made.style) made.widget->addStyleClass(style);
    if (const int width = row.width ? row.width : mSpec.width) made.widget->setWidth(width);
    if (row.height) made.widget->setHeight(row.height);
    if (row.tooltip) made.widget->setToolTip(tr(row.tooltip));
    setName(made, label);
    limit(row, made);
    if (made.bound) made.bound->contentChanged().connect(this, &WSettingsTable::contentChangedHandler);
    mFields.push_back(made);
}

void WSettingsTable::limit(const SettingsRow& row, SettingsField& made) {
    if (row.maxLength) setMaxLength(made.widget, row.maxLength);
    Wt::WValidator* validator = nullptr;
    if (row.pattern) {
        validator = new Wt::WRegExpValidator(Wt::WString::fromUTF8(row.pattern), made.widget);
    } else if (row.top > row.bottom) {
        validator = new Wt::WIntValidator(row.bottom, row.top, made.widget);
        setMaxLength(made.widget, digitsOf(row.top));
    }
    if (!validator || !made.form) return;
    validator->setMandatory(row.mandatory);
    made.form->setValidator(validator);
}

void WSettingsTable::readFromDatabase(const Indexes& indexes, bool force) {
    if (mSpec.path[0]) return readNested(indexes, force);
    const bool together = readTogether(mFields, mSpec.resource, indexes, force);
    const PortTables once; // for the rows that tell where the devices are plugged in
    Errors dropped;
    for (const SettingsField& made : mFields) {
        if (together && isReadTogether(made, mSpec.resource)) continue;
        if (made.bound) made.bound->readFromDatabase(indexes, dropped, force);
        if (made.lookup) made.lookup->readFromDatabase(indexes, dropped);
    }
}

void WSettingsTable::readNested(const Indexes& indexes, bool force) {
    if (mSpec.indexed && indexes.empty()) return;
    ZeqExchange exchange(ZeqReqUtil_newGetResource, mSpec.resource, __func__);
    if (mSpec.indexed)
        for (const unsigned index : indexes) ZeqReqUtil_setIntegerQuery(exchange.request(), "index", index);
    ZeqReqUtil_setSelect(exchange.request(), "index");
    ZeqReqUtil_setSelect(exchange.request(), mSpec.path[0]);
    Errors dropped;
    if (exchange.send(dropped) != 0) return;
    ZeqPtr table;
    for (const char* step : mSpec.path) {
        if (!step) break;
        table.reset(ZeqObj_collapse(table ? table.get() : exchange.response(), "index", step));
        if (!table) return;
    }
    getZeqParams(table.get(), indexes, force);
}

unsigned WSettingsTable::writeToDatabase(const Indexes& indexes, Errors& errors) {
    if (!mTableChanged || (mSpec.indexed && indexes.empty())) return 0;
    const bool byField = mSpec.save == SettingsTableSpec::Save::OneExchangePerField;
    const unsigned result = byField ? writeFields(indexes, errors) : writeRecords(indexes, errors);
    // Also when the service was away: a field that keeps its mark keeps its text, over the next records too.
    clearMarks();
    return result;
}

unsigned WSettingsTable::writeRecords(const Indexes& indexes, Errors& errors) {
    unsigned result = 0;
    for (const unsigned index : mSpec.indexed ? indexes : Indexes{0}) {
        ZeqExchange exchange = ZeqExchange::setRecord(mSpec.resource, index, __func__);
        if (!exchange.ready()) return 1;
        json_t* params = fieldsOf(exchange, mSpec);
        for (const SettingsField& made : mFields)
            if (made.bound) made.bound->setZeqParam(params);
        const unsigned refused = exchange.send(errors);
        if (!exchange.response()) return 1;
        if (mSpec.refusalFails) result |= refused;
    }
    return result;
}

unsigned WSettingsTable::writeFields(const Indexes& indexes, Errors& errors) {
    unsigned result = 0;
    for (const SettingsField& made : mFields)
        if (made.bound && made.bound->hasChangedContent() &&
            made.bound->writeToDatabase(indexes, errors) != 0)
            result = 1;
    return result;
}

void WSettingsTable::contentChangedHandler() {
    mTableChanged = true;
    mContentChangedSignal.emit();
}

bool WSettingsTable::isAllValid() {
    for (const SettingsField& made : mFields)
        if (made.form && made.form->validator() && made.form->validate() != Wt::WValidator::Valid)
            return false;
    return true;
}

bool WSettingsTable::isAnyValid() {
    bool validated = false;
    for (const SettingsField& made : mFields) {
        if (!made.form || !made.form->validator()) continue;
        if (made.form->validate() == Wt::WValidator::Valid) return true;
        validated = true;
    }
    return !validated;
}

bool WSettingsTable::anyWidgetHasFocus() const {
    for (const SettingsField& made : mFields)
        if (made.widget && made.bound && made.widget->hasFocus()) return true;
    return false;
}

void WSettingsTable::getZeqParams(const json_t* table, const Indexes& indexes, bool force) {
    for (const SettingsField& made : mFields)
        if (made.bound) made.bound->getZeqParam(table, indexes, force);
}

void WSettingsTable::setRowEnabled(std::size_t row, bool enabled) {
    mFields[row].widget->setDisabled(!enabled);
}

void WSettingsTable::clearMarks() {
    mTableChanged = false;
    for (const SettingsField& made : mFields)
        if (made.bound) made.bound->clearContentChanged();
}
