#include "views/devices/firmware/WDevViewNewFwUpdateSrcDialog.h"

#include "frame/MoveFile.h"
#include "frame/WFileUploadDialog.h"
#include "platform/client/EventLog.h"
#include "views/devices/firmware/FwUpdateSource.h"
#include "widgets/WFwUpdateFileSrc.h"

#include <Wt/WLabel>
#include <Wt/WLineEdit>
#include <Wt/WRegExpValidator>
#include <Wt/WTable>
#include <Wt/WTableRow>

#include <filesystem>
#include <string_view>

namespace {

constexpr DialogFormHead kHead = {"upload.png", "[RSnnn]Update firmware",
                                  "[RSnnn]Choose the source of the firmware update file."};

} // namespace

/// What a source asks for. Letters stand for the rows server (or file), path, username, password.
struct WDevViewNewFwUpdateSrcDialog::Source {
    std::string_view protocol;
    const char* serverLabel;
    std::string_view shown;     // X shown, . hidden
    std::string_view mandatory; // X must be filled for Proceed
};

const WDevViewNewFwUpdateSrcDialog::Source WDevViewNewFwUpdateSrcDialog::kSources[] = {
    {"ftp", "[RSnnn]Server", "XXXX", "XXX."},   {"http", "[RSnnn]Server", "XXXX", "XX.."},
    {"https", "[RSnnn]Server", "XXXX", "XX.."}, {"tftp", "[RSnnn]Server", "XX..", "XX.."},
    {"file", "[RSnnn]File", "X...", "X..."},
};

WDevViewNewFwUpdateSrcDialog::WDevViewNewFwUpdateSrcDialog()
    : DialogForm(kHead), mSource(new WFwUpdateFileSrc) {
    addField("[RSnnn]Source", mSource);
    addFields();
    mProceedButton = addButton("[RSnnn]Proceed", Proceed);
    addButton("[RSnnn]Close", Close, Rejected);
    for (const Row row : {PathRow, UsernameRow, PasswordRow}) enterPresses(mFields[row], mProceedButton);
    mSource->changed().connect(this, &WDevViewNewFwUpdateSrcDialog::sourceChangedHandler);
    sourceChangedHandler();
}

void WDevViewNewFwUpdateSrcDialog::addFields() {
    mFields[ServerRow] = new Wt::WLineEdit;
    mServerLabel = addField("[RSnnn]Server", mFields[ServerRow]);
    mFields[ServerRow]->setStyleClass(kEditStyle);
    mFields[PathRow] = addLineEdit("[RSnnn]File path/name");
    mFields[UsernameRow] = addLineEdit("[RSnnn]Username");
    mFields[PasswordRow] = addPassword("[RSnnn]Password");
    for (const Row row : {ServerRow, PathRow, UsernameRow, PasswordRow}) {
        mFields[row]->textInput().connect(this, &WDevViewNewFwUpdateSrcDialog::contentChangedHandler);
        mFields[row]->changed().connect(this, &WDevViewNewFwUpdateSrcDialog::contentChangedHandler);
        if (row != PasswordRow) mFields[row]->setValidator(new Wt::WRegExpValidator(mFields[row]));
    }
    mFields[ServerRow]->clicked().connect(this, &WDevViewNewFwUpdateSrcDialog::fileNameFieldClickedHandler);
    mFields[ServerRow]->enterPressed().connect(this,
                                               &WDevViewNewFwUpdateSrcDialog::fileNameFieldEnterHandler);
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
        fields()->rowAt(row)->setHidden(chosen.shown[letter] != 'X');
        if (Wt::WValidator* validator = mFields[row]->validator())
            validator->setMandatory(chosen.mandatory[letter] == 'X');
    }
    contentChangedHandler();
}

void WDevViewNewFwUpdateSrcDialog::contentChangedHandler() {
    bool valid = true;
    for (const Row row : {ServerRow, PathRow, UsernameRow}) {
        // Asked without marking fields that the user has not come to yet.
        if (mFields[row]->validator()->validate(mFields[row]->text()).state() != Wt::WValidator::Valid)
            valid = false;
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

void WDevViewNewFwUpdateSrcDialog::fileNameFieldEnterHandler() {
    if (protocol() == "file")
        fileNameFieldClickedHandler();
    else
        press(mProceedButton);
}

void WDevViewNewFwUpdateSrcDialog::removeUploads(const std::string& keep) {
    for (const std::string& path : mUploads) {
        std::error_code ignored; // gone already, or no longer ours to remove
        if (path != keep) std::filesystem::remove(path, ignored);
    }
    mUploads.clear();
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
