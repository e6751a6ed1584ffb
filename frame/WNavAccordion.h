#pragma once

#include <Wt/WContainerWidget>

namespace Wt {
class WIconPair;
class WTable;
} // namespace Wt

class WNavAccordionStdCell;

/// Heading of a section: a click folds the cell below it, or unfolds it. Reached by the keyboard too.
class WNavAccordionTitleButton : public Wt::WContainerWidget {
public:
    WNavAccordionTitleButton(const Wt::WString& title, Wt::WWidget* cell,
                             Wt::WContainerWidget* parent = nullptr);

    virtual void titleButtonClicked();

private:
    Wt::WWidget* mCell; // a neighbour, not owned
    Wt::WIconPair* mIcon;
};

/// The column of foldable sections at the left of a page.
class WNavAccordion : public Wt::WContainerWidget {
public:
    explicit WNavAccordion(Wt::WContainerWidget* parent = nullptr);

protected:
    void layoutSizeChanged(int width, int height) override;

public:
    /// Adds a section below the others; takes ownership of the cell.
    virtual void sectionAdd(const Wt::WString& title, WNavAccordionStdCell* cell);

private:
    Wt::WTable* mTable;
};
