#pragma once

#include "frame/ObjListParts.h"
#include "frame/WContextPanel.h"

/// A panel with a list of records. A subclass sets headers and hidden columns and fills the list.
class WObjListContextPanel : public WContextPanel, public ObjListParts {
public:
    /// Without a filter field.
    WObjListContextPanel(const Wt::WString& title, int columns, Wt::WContainerWidget* parent = nullptr);
    WObjListContextPanel(const Wt::WString& title, int columns, bool withFilter,
                         Wt::WContainerWidget* parent = nullptr);

    /// Rebuilds the list from the database. A failed read leaves it empty.
    virtual void readFromDatabase() = 0;

    virtual int rowCount() const;    // of the source model, whatever the filter shows
    virtual int numSelected() const; // rows
    virtual void removeAllRows();
    virtual void filterRegExTextChangedHandler(std::string text);
};
