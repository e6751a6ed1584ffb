#pragma once

#include <Wt/WDialog>

#include <string>
#include <vector>

namespace Wt {
class WLineEdit;
class WPushButton;
class WTable;
class WText;
} // namespace Wt

class WFwUpdateFileSrc;

/// Describes a firmware file that the Switch is to fetch, or uploads one. Run with exec().
class WDevViewNewFwUpdateSrcDialog : public Wt::WDialog {
public:
    enum Button { None, Close, Proceed };

    WDevViewNewFwUpdateSrcDialog();

    Button buttonClicked() const { return mButtonClicked; }

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
    void proceedButtonClickedHandler();
    void closeButtonClickedHandler();

    WFwUpdateFileSrc* sourceField() const { return mSource; }
    enum Row { SourceRow, ServerRow, PathRow, UsernameRow, PasswordRow };
    Wt::WLineEdit* field(Row row) const { return mFields[row]; }
    Wt::WPushButton* proceedButton() const { return mProceedButton; }

private:
    static constexpr int kRowCount = PasswordRow + 1;
    struct Source;
    static const Source kSources[];

    const Source& source() const;
    void addRow(Row row, const Wt::WString& label, Wt::WWidget* widget);

    Wt::WTable* mTable;
    WFwUpdateFileSrc* mSource;
    Wt::WText* mServerLabel = nullptr;
    Wt::WLineEdit* mFields[kRowCount] = {}; // by Row; none for SourceRow
    Wt::WPushButton* mProceedButton;
    Button mButtonClicked = None;
    std::vector<std::string> mUploads; // paths below /tmp
};
