#pragma once

#include "frame/StatusTab.h"

#include <Wt/WContainerWidget>

namespace Wt {
class WTextArea;
}

/// The report on the one stored monitor that is selected, to be read and copied. Of several it shows none.
class WPeriphViewMonDecode : public Wt::WContainerWidget, public StatusTab {
public:
    explicit WPeriphViewMonDecode(Wt::WContainerWidget* parent = nullptr);

    bool hasSelectedText() const;
    void readFromDatabase(const std::vector<unsigned>& indexes) override;

private:
    Wt::WTextArea* mText;
    unsigned mShown = 0; // record; 0 = none, or it could not be read
};
