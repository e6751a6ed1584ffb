#pragma once

#include <Wt/WContainerWidget>

namespace Wt {
class WTable;
}

/// Height of every panel's title bar in pixels.
constexpr int kTitleBarHeight = 24;

class WContextPanelTitleBar : public Wt::WContainerWidget {
public:
    explicit WContextPanelTitleBar(const Wt::WString& title, Wt::WContainerWidget* parent = nullptr);

    /// Stands behind the title; takes ownership.
    void addNote(Wt::WWidget* note);

private:
    Wt::WTable* mTable;
};

/// A titled panel that fills the room its layout gives it.
class WContextPanel : public Wt::WContainerWidget {
public:
    explicit WContextPanel(const Wt::WString& title, Wt::WContainerWidget* parent = nullptr);

    WContextPanelTitleBar* titleBar() const { return mTitleBar; }
    /// Adds a widget below the title and what was added before; takes ownership.
    virtual void setContent(Wt::WWidget* content, int stretch, Wt::WFlags<Wt::AlignmentFlag> alignment);

protected:
    void layoutSizeChanged(int width, int height) override;

    Wt::WWidget* mContent = nullptr; // the last one added

private:
    WContextPanelTitleBar* mTitleBar;
};
