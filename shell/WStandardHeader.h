#pragma once

#include <Wt/WContainerWidget>

#include <string>

namespace Wt {
class WText;
}

/// Head of every page: the brand's logos, who is logged in to which Switch, and the links.
/// The text is fixed at login.
class WStandardHeader : public Wt::WContainerWidget {
public:
    /// username: UTF-8.
    explicit WStandardHeader(const std::string& username, Wt::WContainerWidget* parent = nullptr);

    /// Says that the service gives no answers, or no more says so.
    void setServiceAway(bool away);

private:
    Wt::WText* mServiceNote;
};
