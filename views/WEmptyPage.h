#pragma once

#include <Wt/WContainerWidget>

/// A page that has no content yet, and says so. Reads nothing and polls nothing.
class WEmptyPage : public Wt::WContainerWidget {
public:
    explicit WEmptyPage(Wt::WContainerWidget* parent = nullptr);

    void enableAutoRefresh() {}
    void disableAutoRefresh() {}
};
