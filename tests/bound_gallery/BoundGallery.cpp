#include "tests/bound_gallery/BoundGallery.h"

#include "db/Db.h"
#include "db/ZeqPtr.h"
#include "tests/shell/SessionProbe.h"
#include "widgets/WLookupText.h"

#include <Wt/WLineEdit>
#include <Wt/WPushButton>
#include <Wt/WTable>
#include <Wt/WTableCell>
#include <Wt/WText>
#include <Wt/WTimer>

#include <boost/bind/bind.hpp>

namespace {

constexpr int kAutoRefresh = 250; // milliseconds
constexpr unsigned kOne = 1;
constexpr unsigned kOther = 2;
constexpr unsigned kNobody = 999999;

Db::Indexes recordsOf(State state) {
    if (state == State::Equal || state == State::Different) return {kOne, kOther};
    return {kOne};
}

/// A held response with a row for each record.
ZeqPtr heldTable(const Specimen& specimen, State state) {
    const auto row = [](unsigned index, const char* members) {
        return "{\"index\":" + std::to_string(index) + "," + members + "}";
    };
    std::string rows = row(kOne, specimen.a);
    if (state == State::Equal || state == State::Different)
        rows += "," + row(kOther, state == State::Equal ? specimen.a : specimen.b);
    return ZeqPtr(json_loads(("{\"rows\":[" + rows + "]}").c_str(), 0, nullptr));
}

} // namespace

void BoundGallery::build() {
    SessionProbe probe{*this};
    if (probe.login()) probe.login()->hide();
    setTitle("Bound widgets");
    buildControls();
    buildTable();
    addPanels(root());
    addDialogs(root(), mLog);
}

void BoundGallery::buildControls() {
    auto* bar = new Wt::WContainerWidget(root());
    const auto button = [&](const char* id) {
        auto* made = new Wt::WPushButton(id, bar);
        made->setId(id);
        return made;
    };
    button("refresh")->clicked().connect(std::bind([this] { readAgain(false); }));
    button("force")->clicked().connect(std::bind([this] { readAgain(true); }));
    mAuto = new Wt::WTimer(this);
    mAuto->setInterval(kAutoRefresh);
    // One after the other: on a busy machine a reading takes longer than the interval.
    mAuto->setSingleShot(true);
    mAuto->timeout().connect(std::bind([this] {
        readAgain(false);
        if (mRepeats) mAuto->start();
    }));
    button("auto")->clicked().connect(std::bind([this] {
        mRepeats = true;
        mAuto->start();
    }));
    button("manual")->clicked().connect(std::bind([this] {
        mRepeats = false;
        mAuto->stop();
    }));
    mRefreshes = new Wt::WText("0", bar);
    mRefreshes->setId("refreshes");
    mLog = new Wt::WText("ready", Wt::PlainText, bar);
    mLog->setId("log");
    mLog->setMargin(Wt::WLength(20), Wt::Left);
}

void BoundGallery::buildTable() {
    auto* panel = new Wt::WContainerWidget(root());
    panel->setStyleClass("mirl-context-panel");
    auto* table = new Wt::WTable(panel);
    table->setHeaderCount(1);
    std::vector<std::string> columns;
    for (int state = 0; state < kStateCount; ++state) {
        auto* heading = new Wt::WText(kStateNames[state], table->elementAt(0, state + 1));
        table->elementAt(0, state + 1)->setStyleClass("mirl-attribute-table-heading");
        columns.push_back(heading->id());
    }
    store(false);
    for (const Specimen& specimen : specimens()) {
        const int row = table->rowCount();
        auto* label = new Wt::WText(specimen.name, table->elementAt(row, 0));
        label->setStyleClass("mirl-attribute-table-label");
        for (int state = 0; state < kStateCount; ++state)
            addCell(specimen, State(state), table->elementAt(row, state + 1),
                    label->id() + " " + columns[static_cast<std::size_t>(state)]);
    }
    for (const State state : {State::One, State::Equal, State::Disabled, State::Failed, State::Invalid})
        readAll(state, true);
    store(true);
    readAll(State::Different, true);
}

void BoundGallery::addCell(const Specimen& specimen, State state, Wt::WContainerWidget* cell,
                           const std::string& labels) {
    if (state == State::Invalid && !specimen.invalid) return;
    const bool single = specimen.feed == Specimen::Singleton;
    if (single && state != State::One && state != State::Disabled) return;
    if (specimen.feed == Specimen::ByOwner && (state == State::Equal || state == State::Failed)) return;

    const SettingsField field = specimen.make(specimen.resource, specimen.key, !single, cell);
    const std::string id = specimen.name + std::string("/") + std::to_string(static_cast<int>(state));
    field.widget->setId(id);
    if (field.style) field.widget->addStyleClass(field.style);
    if (field.namedBy != NamedBy::ItsText)
        field.widget->setAttributeValue("aria-labelledby",
                                        labels + (field.namedBy == NamedBy::LabelAndValue ? " " + id : ""));
    if (state == State::Disabled) field.widget->setDisabled(true);
    if (field.bound)
        field.bound->contentChanged().connect(
            boost::bind(&Wt::WText::setText, mLog, Wt::WString::fromUTF8("changed " + id)));
    mCells.push_back({&specimen, state, field});
}

// A refused read comes behind a good one: what stays is what the widget showed before.
void BoundGallery::read(const Cell& cell, bool force) {
    const Specimen& specimen = *cell.specimen;
    Db::Errors dropped;
    const auto readRecords = [&](const Db::Indexes& indexes) {
        if (specimen.feed == Specimen::Held)
            cell.field.bound->getZeqParam(heldTable(specimen, cell.state).get(), indexes, force);
        else if (cell.field.bound)
            cell.field.bound->readFromDatabase(indexes, dropped, force);
        else if (cell.field.lookup)
            cell.field.lookup->readFromDatabase(indexes, dropped);
    };
    if (specimen.fill) return specimen.fill(cell.field.widget, cell.state);
    readRecords(recordsOf(cell.state));
    if (cell.state == State::Failed && specimen.feed != Specimen::Held) readRecords({kNobody});
    if (cell.state == State::Invalid) {
        dynamic_cast<Wt::WLineEdit*>(cell.field.widget)->Wt::WLineEdit::setText(specimen.invalid);
        cell.field.form->validate();
    }
}

void BoundGallery::readAll(State state, bool force) {
    for (const Cell& cell : mCells)
        if (cell.state == state) read(cell, force);
}

void BoundGallery::store(bool different) {
    Db::Errors errors;
    for (const Specimen& specimen : specimens())
        for (const unsigned index : {kOne, kOther}) {
            const char* value = different && index == kOther ? specimen.b : specimen.a;
            if (specimen.feed == Specimen::Text)
                Db::db.writeString(specimen.resource, index, specimen.key, value, errors);
            if (specimen.feed == Specimen::Number)
                Db::db.writeUInt32(specimen.resource, index, specimen.key,
                                   static_cast<unsigned>(std::stoul(value)), errors);
        }
    if (!errors.empty()) mLog->setText(Wt::WString::fromUTF8("refused: " + errors.front()));
}

void BoundGallery::readAgain(bool force) {
    for (const State state : {State::One, State::Different, State::Disabled}) readAll(state, force);
    mRefreshes->setText(std::to_string(++mRefreshCount));
}
