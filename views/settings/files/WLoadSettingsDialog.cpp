#include "views/settings/files/WLoadSettingsDialog.h"

#include "db/Db.h"
#include "db/ThisSwx.h"
#include "db/ZeqExchange.h"
#include "platform/client/ZeqReq.h"

#include <Wt/WApplication>
#include <Wt/WFileUpload>
#include <Wt/WLineEdit>
#include <Wt/WProgressBar>
#include <Wt/WTable>
#include <Wt/WTableCell>
#include <Wt/WTableRow>

#include <filesystem>

namespace {

constexpr DialogFormHead kHead = {"event-severity-warning.png", "[RSnnn]Load Settings",
                                  "[RSnnn]load warning"};

constexpr int kMaxWidthPx = 500;
constexpr int kPasswordRow = 1;  // below the upload
constexpr int kMaxPassword = 50; // characters

/// The service may run under another account of the same group.
void letTheServiceRead(const std::string& file) {
    std::error_code ignored; // it is told by the service then
    std::filesystem::permissions(file, std::filesystem::perms::group_read, std::filesystem::perm_options::add,
                                 ignored);
}

} // namespace

WLoadSettingsDialog::WLoadSettingsDialog() : DialogForm(kHead), mUpload(new Wt::WFileUpload) {
    setMaximumSize(kMaxWidthPx, Wt::WLength::Auto);
    addFields();
    mNextButton =
        addButton("[RSnnn]Next (right arrow)", this, &WLoadSettingsDialog::nextButtonClickedHandler);
    mCancelButton = addButton("[RSnnn]Cancel", this, &WLoadSettingsDialog::cancelButtonClickedHandler);
    mUpload->changed().connect(mNextButton, &Wt::WPushButton::enable);
    mUpload->uploaded().connect(this, &WLoadSettingsDialog::fileUploadedHandler);
    mUpload->fileTooLarge().connect(this, &WLoadSettingsDialog::fileTooLargeHandler);
}

void WLoadSettingsDialog::addFields() {
    Wt::WTableCell* cell = fields()->elementAt(0, 0);
    cell->setColumnSpan(2);
    cell->addWidget(mUpload);
    mUpload->setProgressBar(new Wt::WProgressBar);
    mUpload->setAttributeValue("role", "group");
    nameByText(*mUpload);
    mPassword = addPassword("[RSnnn]Password");
    mPassword->setMaxLength(kMaxPassword);
    mPassword->setTextSize(kMaxPassword);
    showFields(false);
}

void WLoadSettingsDialog::showFields(bool shown) {
    for (int row = 0; row < fields()->rowCount(); ++row) fields()->rowAt(row)->setHidden(!shown);
}

void WLoadSettingsDialog::nextButtonClickedHandler() {
    if (mStep == Step::Warned) {
        mStep = Step::Chooses;
        imageSet("settings.png");
        textSet(tr("[RSnnn]load explanation"));
        showFields(true);
        mNextButton->disable();
    } else if (mStep == Step::Chooses) {
        transfer();
    }
}

void WLoadSettingsDialog::transfer() {
    mStep = Step::Transfers;
    textSet(tr("[RSnnn]Transferring file."));
    mUpload->upload();
    fields()->rowAt(kPasswordRow)->hide(); // the upload stays on show: it tells how far it is
    delete mNextButton;
    mNextButton = nullptr;
}

void WLoadSettingsDialog::fileUploadedHandler() {
    if (mStep != Step::Transfers || mResult != NotLoaded) return;
    const std::string file = mUpload->spoolFileName();
    letTheServiceRead(file);
    ZeqExchange exchange(ZeqReqUtil_newSetResource, "swxControl", "fileUploadedHandler");
    std::vector<std::string> errors;
    unsigned failed = 1;
    if (exchange.ready()) {
        ZeqReqUtil_setIntegerParam(exchange.request(), "index", kThisSwxIndex);
        ZeqReqUtil_setStringParam(exchange.request(), "settingsAction", "unzip");
        ZeqReqUtil_setStringParam(exchange.request(), "settingsFilename", file.c_str());
        ZeqReqUtil_setStringParam(exchange.request(), "settingsPassword", mPassword->text().toUTF8().c_str());
        failed = exchange.send(errors);
    }
    mPassword->setText("");
    if (failed == 0) {
        end(Installed, "[RSnnn]The settings file has been validated and installed.");
        rejectWhenEscapePressed(false); // a reboot is the only way on
        mRebootButton = addButton("[RSnnn]Reboot", this, &WLoadSettingsDialog::rebootButtonClickedHandler);
        return;
    }
    end(Refused, "[RSnnn]Error validating and installing settings file.");
    titleSet(tr("[RSnnn]Error"));
    imageSet("event-severity-warning.png");
    if (!errors.empty())
        textSet(tr("[RSnnn]Error validating and installing settings file.") + "\n" +
                Wt::WString::fromUTF8(errors.front()));
    addButton("[RSnnn]Close", Refused);
}

void WLoadSettingsDialog::end(Result result, const char* text) {
    mResult = result;
    textSet(tr(text));
    showFields(false);
    delete mCancelButton;
    mCancelButton = nullptr;
}

void WLoadSettingsDialog::fileTooLargeHandler() {
    mResult = TooLarge;
    showFields(false);
    textSet(tr("[RSnnn]File too large. Probably not a valid settings file."));
}

void WLoadSettingsDialog::rebootButtonClickedHandler() {
    if (mRebootButton->isHidden()) return; // a second click
    mRebootButton->hide();
    titleSet(tr("[RSnnn]Rebooting"));
    imageSet("event-severity-info.png");
    textSet(tr("[RSnnn]Rebooting this Switch. Please wait."));
    Wt::WApplication::instance()
        ->processEvents(); // the text is to reach the browser before the Switch goes down
    std::vector<std::string> errors;
    Db::db.requestDeviceReboot("swx", kThisSwxIndex, errors);
    if (errors.empty()) return; // also without an answer: the Switch may be going down already
    titleSet(tr("[RSnnn]Error"));
    imageSet("event-severity-warning.png");
    textSet(Wt::WString::fromUTF8(errors.front()));
    addButton("[RSnnn]Close", Installed);
}

void WLoadSettingsDialog::cancelButtonClickedHandler() {
    if (mResult != TooLarge) mResult = Cancelled;
    done(Rejected);
}
