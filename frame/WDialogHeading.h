#pragma once

#include <Wt/WContainerWidget>

#include <string>

namespace Wt {
class WDialog;
class WImage;
class WString;
class WText;
} // namespace Wt

/// First row of a dialog: a small image and the title beside it. The dialogs have no title bar; this takes
/// its place and gives the dialog its accessible name.
class WDialogHeading : public Wt::WContainerWidget {
public:
    /// imageFile: name of a file in the brand's theme folder.
    WDialogHeading(Wt::WDialog& dialog, const std::string& imageFile, const Wt::WString& title);

    void setTitle(const Wt::WString& title);
    /// The same kind of file as at the beginning.
    void setImage(const std::string& imageFile);

private:
    Wt::WImage* mImage;
    Wt::WText* mTitle;
};
