#pragma once

#include <Wt/WTable>

namespace Wt {
class WAnchor;
}

/// The links Help, Preferences and Log out. A slave or managed Switch has no Preferences.
class WHeaderLinks : public Wt::WTable {
public:
    explicit WHeaderLinks(Wt::WContainerWidget* parent = nullptr);

    void preferencesClickedHandler();
    /// Asks before unsaved changes are lost, unless the user has turned that question off.
    void logoutClickedHandler();

private:
    Wt::WAnchor* newLink(const char* styleClass, const Wt::WString& text);
};
