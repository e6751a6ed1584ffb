#include "views/peripherals/WPushMonitorDialog.h"

#include "db/Db.h"
#include "frame/ShowBox.h"
#include "views/peripherals/WPushMonitorDialogTxList.h"

#include <Wt/WApplication>
#include <Wt/WProgressBar>
#include <Wt/WTextArea>

#include <algorithm>
#include <cstdio>

namespace {

constexpr DialogFormHead kHead = {
    "video-monitor-push.png", "[RSnnn]Push Monitor",
    "[RSnnn]Select the Transmitter(s) that the monitor should be pushed to, then click Push."};
constexpr BoxRow kMismatch = {WMsgBox::Warning, "[RSnnn]Mismatch", {"[RSnnn]Continue", "[RSnnn]Cancel"}};

constexpr int kListWidth = 600, kListHeight = 350; // pixels
constexpr int kFailureColumns = 60;
constexpr int kFewRows = 5, kManyRows = 10; // of the failures: for up to 5, and for more

} // namespace

WPushMonitorDialog::WPushMonitorDialog(unsigned edidIndex, const std::string& type)
    : MonitorTransfer(kHead, new WPushMonitorDialogTxList, kListWidth, kListHeight, "[RSnnn]Push"),
      mEdid(edidIndex), mType(type), mTransmitters(static_cast<WPushMonitorDialogTxList*>(list())),
      mProgress(addPage(new Wt::WProgressBar)), mFailures(addPage(new Wt::WTextArea)) {
    mProgress->setRange(0, 100);
    mProgress->resize(Wt::WLength(100, Wt::WLength::Percentage), Wt::WLength::Auto);
    mProgress->setAttributeValue("aria-label", tr("[RSnnn]Push Monitor"));
    mFailures->setReadOnly(true);
    mFailures->setStyleClass("mirl-attribute-table-read-write-multi-line-edit");
    mFailures->setAttributeValue("aria-label", tr("[RSnnn]Push Monitor"));
    mFailures->resize(Wt::WLength(100, Wt::WLength::Percentage), Wt::WLength::Auto);
    mTransmitters->readFromDatabase();
}

std::vector<WPushMonitorDialog::Target> WPushMonitorDialog::selectedTargets() const {
    using List = WPushMonitorDialogTxList;
    std::vector<Target> targets;
    for (const Wt::WModelIndex& row : mTransmitters->selectedIndexes()) {
        const std::string name = mTransmitters->textAt(row, List::Name);
        targets.push_back({mTransmitters->zeqIndexAt(row), mTransmitters->textAt(row, List::Type),
                           name.empty() ? mTransmitters->textAt(row, List::Eid) : name});
    }
    return targets;
}

// One question for all: what the first one that differs is, and then on with every Transmitter.
bool WPushMonitorDialog::mismatchIsAccepted(const std::vector<Target>& targets) const {
    const auto other = std::find_if(targets.begin(), targets.end(),
                                    [this](const Target& target) { return target.type != mType; });
    if (other == targets.end()) return true;
    const std::string text =
        tr("[RSnnn]There is a EDID-tx mismatch").toUTF8() + "\n\n" +
        tr("[RSnnn]Monitor attributes type: ").toUTF8() + mType + "\n\n" +
        tr("[RSnnn]Transmitter type: ").toUTF8() + other->type + "\n\n" +
        tr("[RSnnn]Do you still want to push the monitor attributes to the transmitter(s)?").toUTF8();
    return showBox(kMismatch, Wt::WString::fromUTF8(text)) == 1;
}

void WPushMonitorDialog::transfer() {
    const std::vector<Target> targets = selectedTargets();
    if (!mismatchIsAccepted(targets)) return;
    begin();
    titleSet(tr("[RSnnn]Pushing monitor to transmitter(s)."));
    showInstead(mProgress);
    Wt::WApplication::instance()->processEvents();
    tell(pushTo(targets), targets.size());
}

// Runs within the click's handler. The events that are processed between two Transmitters bring Cancel, and the
// end of the session by an exception.
std::vector<WPushMonitorDialog::Failure> WPushMonitorDialog::pushTo(const std::vector<Target>& targets) {
    std::vector<Failure> failures;
    std::size_t done = 0;
    for (const Target& target : targets) {
        if (isLeft()) break;
        std::vector<std::string> errors, dropped;
        if (Db::db.pushEdidToTx(target.index, mEdid, errors) != 0) {
            std::string name;
            // Its name now; the list's when it is gone.
            if (Db::db.getTxNameOrEidFromTxIndex(target.index, name, dropped) != 0) name = target.name;
            failures.push_back({name, errors});
        }
        mProgress->setValue(100.0 * static_cast<double>(++done) / static_cast<double>(targets.size()));
        Wt::WApplication::instance()->processEvents();
    }
    return failures;
}

void WPushMonitorDialog::tell(const std::vector<Failure>& failures, std::size_t selected) {
    if (failures.empty()) {
        end(tr("[RSnnn]Finished."));
        return;
    }
    // On purpose: the failures among those tried are set against all that were selected, also after a Cancel.
    char counts[64];
    std::snprintf(counts, sizeof counts, " (%d %s %d %s):", static_cast<int>(failures.size()),
                  tr("[RSnnn]failed of").toUTF8().c_str(), static_cast<int>(selected),
                  tr("[RSnnn]tried").toUTF8().c_str());
    std::string lines;
    for (const Failure& failure : failures) {
        lines += (lines.empty() ? "\"" : "\n\"") + failure.name + '"';
        if (!failure.errors.empty()) lines += ':';
        for (const std::string& error : failure.errors) lines += ' ' + error;
    }
    mFailures->setText(Wt::WString::fromUTF8(lines));
    mFailures->setColumns(kFailureColumns);
    mFailures->setRows(failures.size() > kFewRows ? kManyRows : kFewRows);
    const std::string title =
        tr("[RSnnn]Failed to push monitor to the following Transmitters").toUTF8() + counts;
    endWithFailure(Wt::WString::fromUTF8(title, true), mFailures);
}
