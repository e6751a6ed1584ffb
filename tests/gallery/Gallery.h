#pragma once

#include <Wt/WApplication>

namespace Wt {
class WContainerWidget;
class WText;
class WTimer;
} // namespace Wt

/// One section a widget family, those that the address asks for by `?show=tabs,files`, else all. Elements
/// that a test looks for have ids of their own.
class Gallery : public Wt::WApplication {
public:
    explicit Gallery(const Wt::WEnvironment& environment);
    ~Gallery() override;

private:
    void buildForms();
    void buildLayouts();
    void buildDialogs();
    void buildTimers();
    void buildText();
    void buildTabs();
    void buildEnds();
    void buildCounter();
    Wt::WContainerWidget* section(const char* title);
    void askWithDialog();
    void nestedDialog();
    void tick();

    Wt::WContainerWidget* mSections;
    Wt::WText* mLog;
    Wt::WTimer* mTimer = nullptr;
    int mTicks = 0, mCounted = 0;
};
