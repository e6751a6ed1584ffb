#pragma once

#include <Wt/WAnimation>
#include <Wt/WContainerWidget>
#include <Wt/WSignal>

#include <cstdint>

namespace Wt {
class WIconPair;
class WText;
} // namespace Wt

/// Title bar with the sign that tells whether the panel is folded. Reached by the keyboard too.
class WCollapsingContextPanelTitleBar : public Wt::WContainerWidget {
public:
    explicit WCollapsingContextPanelTitleBar(const Wt::WString& title,
                                             Wt::WContainerWidget* parent = nullptr);

    /// 0 expanded, 1 collapsed.
    virtual void stateButtonSet(unsigned int state);
    /// What the panel shows at the moment, behind its title; empty: nothing in particular.
    void subjectSet(const Wt::WString& subject);

private:
    Wt::WIconPair* mStateButton;
    Wt::WText* mSubject;
};

/// A titled panel that folds to its title bar: by a click on it, or, if resizable, when a divider makes it
/// lower than 90 pixels.
class WCollapsingContextPanel : public Wt::WContainerWidget {
public:
    enum HeightType { FixedHeight, ResizableHeight };

    /// `height` in pixels.
    WCollapsingContextPanel(const Wt::WString& title, HeightType heightType, int height,
                            Wt::WContainerWidget* parent = nullptr);

    /// Folds or unfolds. A FixedHeight panel unfolds to the height given at construction, a resizable one to
    /// the last height of at least 90 pixels.
    void titleButtonClicked();

    void setSubject(const Wt::WString& subject) { mTitleBar->subjectSet(subject); }
    bool isCollapsed() const { return mCollapsed; }

    /// The panel folded (true) or unfolded, whatever made it.
    Wt::Signal<bool>& folded() { return mFoldedSignal; }

protected:
    void layoutSizeChanged(int width, int height) override;

public:
    /// Adds a widget below the title and what was added before; takes ownership. Folding
    /// hides the last one added.
    virtual void setContent(Wt::WWidget* content, int stretch, Wt::WFlags<Wt::AlignmentFlag> alignment);

    // The view's own wish, whatever the fold state.
    virtual void hideContent();
    virtual void showContent();

private:
    void fold();
    void unfold(int height);

    Wt::WWidget* mContent = nullptr;
    Wt::WAnimation mAnimation;
    WCollapsingContextPanelTitleBar* mTitleBar = nullptr;
    HeightType mHeightType;
    std::int32_t mInitialHeight; // pixels, as are the others
    std::int32_t mCurrentHeight; // the last one of at least 90
    bool mCollapsed = false;
    bool mToggled = false;       // by its title, and no size has come since
    bool mContentHidden = false; // by hideContent
    Wt::Signal<bool> mFoldedSignal;
};
