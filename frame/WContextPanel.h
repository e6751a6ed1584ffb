#pragma once

#include <Wt/WContainerWidget>

/// Height of every panel's title bar in pixels.
constexpr int kTitleBarHeight = 24;

class WContextPanelTitleBar : public Wt::WContainerWidget {
public:
    explicit WContextPanelTitleBar(const Wt::WString& title, Wt::WContainerWidget* parent = nullptr);
};

/// A titled panel that fills the room its layout gives it.
class WContextPanel : public Wt::WContainerWidget {
public:
    explicit WContextPanel(const Wt::WString& title, Wt::WContainerWidget* parent = nullptr);

    /// Adds a widget below the title and what was added before; takes ownership.
    virtual void setContent(Wt::WWidget* content, int stretch, Wt::WFlags<Wt::AlignmentFlag> alignment);

protected:
    void layoutSizeChanged(int width, int height) override;

    Wt::WWidget* mContent = nullptr; // the last one added
};
