#include "views/devices/firmware/WDevViewNewFwUpdateSrcDialog.h"

#include "frame/MsgBoxParts.h"
#include "frame/WDialogHeading.h"
#include "frame/WFileUploadDialog.h"
#include "platform/client/EventLog.h"
#include "views/devices/firmware/FwUpdateSource.h"
#include "widgets/WFwUpdateFileSrc.h"

#include <Wt/WLineEdit>
#include <Wt/WPushButton>
#include <Wt/WRegExpValidator>
#include <Wt/WTable>
#include <Wt/WTableCell>
#include <Wt/WTableRow>
#include <Wt/WText>

#include <filesystem>
#include <string_view>

/// What a source asks for. Letters stand for the rows server, path, username, password.
struct WDevViewNewFwUpdateSrcDialog::Source {
    std::string_view protocol;
    const char* serverLabel;
    std::string_view shown;     // X shown, . hidden
    std::string_view mandatory; // X must be filled
    std::string_view needed;    // X must be valid for Proceed
};

const WDevViewNewFwUpdateSrcDialog::Source WDevViewNewFwUpdateSrcDialog::kSources[] = {
    {"ftp", "[RSnnn]Server", "XXXX", ".XX.", "XXX."},   {"http", "[RSnnn]Server", "XXXX", ".X..", "XX.."},
    {"https", "[RSnnn]Server", "XXXX", ".X..", "XX.."}, {"tftp", "[RSnnn]Server", "XX..", ".X..", "XXX."},
    {"file", "[RSnnn]File", "X...", "....", "X..."},
};

WDevViewNewFwUpdateSrcDialog::WDevViewNewFwUpdateSrcDialog() {
    rejectWhenEscapePressed();
    contents()->setPadding(kMsgBoxPaddingPx);
    contents()->addWidget(new WDialogHeading(*this, "upload.png", tr("[RSnnn]Update firmware")));
    contents()->addWidget(newMsgBoxText(tr("[RSnnn]Choose the source of the firmware update file.")));

    mTable = new Wt::WTable(contents());
    mSource = new WFwUpdateFileSrc;
    addRow(SourceRow, tr("[RSnnn]Source"), mSource);
    const Wt::WString labels[] = {tr("[RSnnn]Source"), tr("[RSnnn]Server"), tr("[RSnnn]File path/name"),
                                  tr("[RSnnn]Username"), tr("[RSnnn]Password")};
    for (const Row row : {ServerRow, PathRow, UsernameRow, PasswordRow}) {
        mFields[row] = new Wt::WLineEdit;
        addRow(row, labels[row], mFields[row]);
        mFields[row]->setStyleClass("mirl-attribute-table-read-write-line-edit");
        mFields[row]->textInput().connect(this, &WDevViewNewFwUpdateSrcDialog::contentChangedHandler);
        mFields[row]->changed().connect(this, &WDevViewNewFwUpdateSrcDialog::contentChangedHandler);
        if (row == PasswordRow) continue;
        auto* validator = new Wt::WRegExpValidator(mFields[row]);
        validator->setMandatory(true);
        mFields[row]->setValidator(validator);
    }
    mFields[PasswordRow]->setEchoMode(Wt::WLineEdit::Password);
    mFields[PasswordRow]->setAutoComplete(false);
    mFields[ServerRow]->clicked().connect(this, &WDevViewNewFwUpdateSrcDialog::fileNameFieldClickedHandler);
    mFields[ServerRow]->enterPressed().connect(this,
                                               &WDevViewNewFwUpdateSrcDialog::fileNameFieldClickedHandler);
    mSource->changed().connect(this, &WDevViewNewFwUpdateSrcDialog::sourceChangedHandler);

    Wt::WContainerWidget* buttons = newMsgBoxButtonRow(contents());
    mProceedButton = newMsgBoxButton(tr("[RSnnn]Proceed"), buttons);
    Wt::WPushButton* closeButton = newMsgBoxButton(tr("[RSnnn]Close"), buttons);
    mProceedButton->clicked().connect(this, &WDevViewNewFwUpdateSrcDialog::proceedButtonClickedHandler);
    closeButton->clicked().connect(this, &WDevViewNewFwUpdateSrcDialog::closeButtonClickedHandler);
    sourceChangedHandler();
}

void WDevViewNewFwUpdateSrcDialog::addRow(Row row, const Wt::WString& label, Wt::WWidget* widget) {
    auto* text = new Wt::WText(label, Wt::PlainText, mTable->elementAt(row, 0));
    text->setStyleClass("mirl-label");
    mTable->elementAt(row, 1)->addWidget(widget);
    widget->setAttributeValue("aria-labelledby", text->id());
    if (row == ServerRow) mServerLabel = text;
}

const WDevViewNewFwUpdateSrcDialog::Source& WDevViewNewFwUpdateSrcDialog::source() const {
    const std::string chosen = protocol();
    for (const Source& source : kSources) {
        if (source.protocol == chosen) return source;
    }
    return kSources[0];
}

void WDevViewNewFwUpdateSrcDialog::sourceChangedHandler() {
    const Source& chosen = source();
    mServerLabel->setText(tr(chosen.serverLabel));
    for (int row = ServerRow; row < kRowCount; ++row) {
        const auto letter = static_cast<std::size_t>(row - ServerRow);
        mTable->rowAt(row)->setHidden(chosen.shown[letter] != 'X');
        if (Wt::WValidator* validator = mFields[row]->validator())
            validator->setMandatory(chosen.mandatory[letter] == 'X');
    }
    contentChangedHandler();
}

void WDevViewNewFwUpdateSrcDialog::contentChangedHandler() {
    const Source& chosen = source();
    bool valid = true;
    for (int row = ServerRow; row < kRowCount; ++row) {
        if (chosen.needed[static_cast<std::size_t>(row - ServerRow)] == 'X' &&
            mFields[row]->validator()->validate(mFields[row]->text()).state() != Wt::WValidator::Valid)
            valid = false; // asked without marking fields that the user has not come to yet
    }
    mProceedButton->setEnabled(valid);
}

void WDevViewNewFwUpdateSrcDialog::fileNameFieldClickedHandler() {
    if (protocol() != "file") return;
    WFileUploadDialog dialog;
    dialog.exec();
    const std::string spooled = dialog.serverFileName();
    const std::string target = uploadTarget(dialog.clientFileName());
    if (dialog.result() != WFileUploadDialog::kTransferred || spooled.empty() || target.empty()) return;
    if (moveFile(spooled, target))
        mUploads.push_back(target);
    else
        EventLog_write(2, 7, __func__, "File transfer failed.");
    mFields[ServerRow]->setText(Wt::WString::fromUTF8(target));
    contentChangedHandler();
}

void WDevViewNewFwUpdateSrcDialog::removeUploads(const std::string& keep) {
    for (const std::string& path : mUploads) {
        std::error_code ignored; // gone already, or no longer ours to remove
        if (path != keep) std::filesystem::remove(path, ignored);
    }
    mUploads.clear();
}

void WDevViewNewFwUpdateSrcDialog::proceedButtonClickedHandler() {
    mButtonClicked = Proceed;
    accept();
}

void WDevViewNewFwUpdateSrcDialog::closeButtonClickedHandler() {
    mButtonClicked = Close;
    reject();
}

std::string WDevViewNewFwUpdateSrcDialog::protocol() const {
    return mSource->valueText().toUTF8();
}

std::string WDevViewNewFwUpdateSrcDialog::location() const {
    return protocol() == "file" ? "" : mFields[ServerRow]->text().toUTF8();
}

std::string WDevViewNewFwUpdateSrcDialog::fileName() const {
    return mFields[protocol() == "file" ? ServerRow : PathRow]->text().toUTF8();
}

std::string WDevViewNewFwUpdateSrcDialog::username() const {
    return mFields[UsernameRow]->text().toUTF8();
}

std::string WDevViewNewFwUpdateSrcDialog::password() const {
    return mFields[PasswordRow]->text().toUTF8();
}
