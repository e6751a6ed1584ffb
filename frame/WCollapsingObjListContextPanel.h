#pragma once

#include "frame/ObjListParts.h"
#include "frame/WCollapsingContextPanel.h"

/// A folding panel with a list of records. A subclass sets headers and hidden columns and fills the list.
class WCollapsingObjListContextPanel : public WCollapsingContextPanel, public ObjListParts {
public:
    /// Without a filter field. `height` in pixels.
    WCollapsingObjListContextPanel(const Wt::WString& title, HeightType heightType, int height, int columns,
                                   Wt::WContainerWidget* parent = nullptr);
    WCollapsingObjListContextPanel(const Wt::WString& title, HeightType heightType, int height, int columns,
                                   bool withFilter, Wt::WContainerWidget* parent = nullptr);

    /// Rebuilds the list from the database. A failed read leaves it empty.
    virtual void readFromDatabase() = 0;

    virtual void filterRegExTextChangedHandler(std::string text);
};
