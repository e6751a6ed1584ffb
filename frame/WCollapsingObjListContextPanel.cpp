#include "frame/WCollapsingObjListContextPanel.h"

#include "frame/WAutoSizeTableView.h"
#include "widgets/WLineEditPlus.h"

WCollapsingObjListContextPanel::WCollapsingObjListContextPanel(const Wt::WString& title,
                                                               HeightType heightType, int height, int columns,
                                                               Wt::WContainerWidget* parent)
    : WCollapsingObjListContextPanel(title, heightType, height, columns, false, parent) {}

WCollapsingObjListContextPanel::WCollapsingObjListContextPanel(const Wt::WString& title,
                                                               HeightType heightType, int height, int columns,
                                                               bool withFilter, Wt::WContainerWidget* parent)
    : WCollapsingContextPanel(title, heightType, height, parent), ObjListParts(columns, withFilter) {
    if (withFilter) {
        setContent(makeFilterRow(tr("mirl.dashboard.usersessions.filter.label"), tr("tt.dash.sess.filter")),
                   0, Wt::AlignJustify);
        mFilterField->valueChanged().connect(this,
                                             &WCollapsingObjListContextPanel::filterRegExTextChangedHandler);
    }
    setContent(mTable, 1, Wt::AlignJustify);
}

void WCollapsingObjListContextPanel::filterRegExTextChangedHandler(std::string text) {
    setFilterText(text);
}
