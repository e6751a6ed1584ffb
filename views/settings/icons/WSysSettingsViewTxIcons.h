#pragma once

#include "widgets/WSettingsTabBase.h"

#include <array>

namespace Wt {
class WImage;
class WPushButton;
class WTable;
} // namespace Wt

/// The icons of Transmitters that an administrator may replace by own ones. A replacement takes effect at once;
/// there is nothing to save.
class WSysSettingsViewTxIcons : public WSettingsTabBase {
public:
    static constexpr unsigned kCustomIcons = 16;
    static constexpr unsigned kFirstFile = 17; // number of the file of custom icon 0

    explicit WSysSettingsViewTxIcons(Wt::WContainerWidget* parent = nullptr);

    /// `icon` counts from 0.
    void customIconClickedHandler(unsigned icon);
    /// Uploads a file in place of the chosen icon.
    void replaceButtonClickedHandler();

    unsigned writeToDatabase(const std::vector<unsigned>&, std::vector<std::string>&) override { return 0; }

    Wt::WImage* icon(unsigned icon) const { return mIcons[icon]; }
    Wt::WPushButton* replaceButton() const { return mReplaceButton; }

private:
    void showIcon(unsigned icon);

    Wt::WTable* mTable;
    std::array<Wt::WImage*, kCustomIcons> mIcons{};
    unsigned mChosen = kCustomIcons; // none yet
    Wt::WPushButton* mReplaceButton;
};
