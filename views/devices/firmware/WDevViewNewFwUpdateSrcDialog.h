#pragma once

#include "frame/DialogForm.h"

#include <string>
#include <vector>

class WFwUpdateFileSrc;

/// Describes a firmware file that the Switch is to fetch, or uploads one. Run with exec().
class WDevViewNewFwUpdateSrcDialog : public DialogForm {
public:
    enum Button { None, Close, Proceed };

    WDevViewNewFwUpdateSrcDialog();

    // What the user entered, UTF-8.
    std::string protocol() const;
    std::string location() const; // empty for a local file
    std::string fileName() const;
    std::string username() const;
    std::string password() const;

    /// Removes the files that were uploaded here, but for the one named.
    void removeUploads(const std::string& keep = std::string());

    void sourceChangedHandler();
    void contentChangedHandler();
    void fileNameFieldClickedHandler();
    /// As a click for a local file, else as in the other fields.
    void fileNameFieldEnterHandler();

    WFwUpdateFileSrc* sourceField() const { return mSource; }
    enum Row { SourceRow, ServerRow, PathRow, UsernameRow, PasswordRow };
    Wt::WLineEdit* field(Row row) const { return mFields[row]; }
    Wt::WPushButton* proceedButton() const { return mProceedButton; }

protected:
    void judgeFields() override { contentChangedHandler(); }

private:
    static constexpr int kRowCount = PasswordRow + 1;
    struct Source;
    static const Source kSources[];

    const Source& source() const;
    void addFields();

    WFwUpdateFileSrc* mSource;
    Wt::WLabel* mServerLabel = nullptr;
    Wt::WLineEdit* mFields[kRowCount] = {}; // by Row; none for SourceRow
    Wt::WPushButton* mProceedButton;
    std::vector<std::string> mUploads; // paths below /tmp
};
