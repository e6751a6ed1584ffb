#include "frame/ObjListParts.h"

#include "frame/WNumericSortFilterProxyModel.h"
#include "widgets/WLineEditPlus.h"

#include <Wt/WHBoxLayout>
#include <Wt/WStandardItemModel>
#include <Wt/WTable>
#include <Wt/WTableCell>
#include <Wt/WText>

#include <boost/any.hpp>

ObjListParts::ObjListParts(int columns, bool withFilter)
    : mTable(new RecordTable(columns)), mProxy(mTable->proxy()), mModel(mTable->records()) {
    mProxy->setFilterKeyColumn(withFilter ? 2 : 1);
    if (!withFilter) return;
    mProxy->setFilterRole(Wt::DisplayRole);
    mProxy->setFilterRegExp("^.*");
    mProxy->setFilterFlags(Wt::MatchCaseInsensitive);
}

Wt::WContainerWidget* ObjListParts::makeFilterRow(const Wt::WString& label, const Wt::WString& toolTip) {
    auto* row = new Wt::WContainerWidget;
    auto* layout = new Wt::WHBoxLayout;
    layout->setContentsMargins(4, 4, 4, 4);
    row->setLayout(layout);
    auto* table = new Wt::WTable;
    layout->addWidget(table);
    layout->addStretch(1);
    auto* text = new Wt::WText(label, Wt::PlainText, table->elementAt(0, 0));
    text->setStyleClass("mirl-label");
    mFilterField = new WLineEditPlus(table->elementAt(0, 1));
    mFilterField->setStyleClass("mirl-attribute-table-read-write-line-edit");
    mFilterField->setToolTip(toolTip);
    mFilterField->setAttributeValue("aria-label", label);
    return row;
}

void ObjListParts::setFilterText(const std::string& text) {
    mProxy->setFilterRegExp(Wt::WString::fromUTF8("^.*" + text + ".*"));
    mTable->setEmptyText(text.empty() ? mEmptyText : Wt::WString::tr("mirl.list.empty.filtered"));
}

void ObjListParts::setEmptyText(const Wt::WString& text) {
    mEmptyText = text;
    mTable->setEmptyText(text);
}

void ObjListParts::setHeader(int column, const Wt::WString& text) {
    mTable->setHeader(column, text);
}

void ObjListParts::setCell(int row, int column, unsigned int value) {
    mModel->setData(row, column, boost::any(value));
}

void ObjListParts::setCell(int row, int column, const std::string& text) {
    mModel->setData(row, column, boost::any(text));
}
