#include <Wt/WComboBox.h>

#include "core/ForeignJson.h"
#include "web/ElementSpec.h"
#include "web/JsonText.h"
#include "web/Renderer.h"

#include <Wt/WAbstractItemModel.h>
#include <Wt/WBoostAny.h>

#include <boost/json/value.hpp>

namespace Wt {

WComboBox::WComboBox(WContainerWidget* parent) : WFormWidget(parent) {}

WComboBox::~WComboBox() {
    leaveModel();
}

void WComboBox::itemsChanged() {
    const int items = count();
    if (items == 0)
        mCurrent = -1;
    else if (mCurrent < 0 && !mNoSelection)
        mCurrent = 0;
    else if (mCurrent >= items)
        mCurrent = items - 1;
    nodeChanged();
}

void WComboBox::addItem(const WString& text) {
    insertItem(count(), text);
}

void WComboBox::insertItem(int index, const WString& text) {
    if (mModel) {
        if (mModel->insertRow(index)) setItemText(index, text);
        return;
    }
    const int place = std::clamp(index, 0, count());
    mTexts.insert(mTexts.begin() + place, text);
    if (place <= mCurrent) ++mCurrent;
    itemsChanged();
}

void WComboBox::removeItem(int index) {
    if (index < 0 || index >= count()) return;
    if (mModel) {
        mModel->removeRow(index);
        return;
    }
    mTexts.erase(mTexts.begin() + index);
    if (index < mCurrent) --mCurrent;
    itemsChanged();
}

void WComboBox::setItemText(int index, const WString& text) {
    if (index < 0 || index >= count()) return;
    if (mModel)
        mModel->setData(index, mModelColumn, boost::any(text));
    else
        mTexts[static_cast<std::size_t>(index)] = text;
    nodeChanged();
}

void WComboBox::clear() {
    if (mModel)
        mModel->removeRows(0, mModel->rowCount());
    else
        mTexts.clear();
    mCurrent = -1;
    nodeChanged();
}

void WComboBox::setCurrentIndex(int index) {
    if (index < -1 || index >= count() || index == mCurrent) return;
    mCurrent = index;
    nodeChanged();
}

void WComboBox::setNoSelectionEnabled(bool enabled) {
    mNoSelection = enabled;
    itemsChanged();
}

void WComboBox::setModel(WAbstractItemModel* model) {
    leaveModel();
    mModel = model;
    mTexts.clear();
    mCurrent = -1;
    if (model) followModel();
    itemsChanged();
}

void WComboBox::setModelColumn(int index) {
    mModelColumn = index;
    nodeChanged();
}

void WComboBox::followModel() {
    for (auto* signal : {&mModel->rowsInserted(), &mModel->rowsRemoved()})
        mModelConnections.push_back(signal->connect(this, &WComboBox::itemsChanged));
    mModelConnections.push_back(mModel->dataChanged().connect(this, &WComboBox::itemsChanged));
    mModelConnections.push_back(mModel->modelReset().connect(this, &WComboBox::itemsChanged));
    mModelConnections.push_back(mModel->layoutChanged().connect(this, &WComboBox::itemsChanged));
}

void WComboBox::leaveModel() {
    for (const auto& connection : mModelConnections) connection.disconnect();
    mModelConnections.clear();
}

int WComboBox::count() const {
    return mModel ? mModel->rowCount() : static_cast<int>(mTexts.size());
}

WString WComboBox::textAt(int index) const {
    if (!mModel) return mTexts[static_cast<std::size_t>(index)];
    return asString(mModel->data(index, mModelColumn));
}

const WString WComboBox::itemText(int index) const {
    return index < 0 || index >= count() ? WString() : textAt(index);
}

const WString WComboBox::currentText() const {
    return itemText(mCurrent);
}

int WComboBox::findText(const WString& text) const {
    for (int i = 0; i < count(); ++i)
        if (textAt(i) == text) return i;
    return -1;
}

void WComboBox::setValueText(const WString& value) {
    setCurrentIndex(findText(value));
}

void WComboBox::refresh() {
    WFormWidget::refresh();
}

void WComboBox::browserValue(const boost::json::value& value) {
    if (!value.is_int64() || isReadOnly()) return;
    const std::int64_t index = value.get_int64();
    if (index < -1 || index >= count()) return nodeChanged();
    mCurrent = static_cast<int>(index);
    if (auto* renderer = Impl::Renderer::current())
        renderer->shownByBrowser(*this, "selectedIndex", std::to_string(index));
    nodeChanged();
}

// Handlers of activated() may delete this.
void WComboBox::browserEvent(std::string_view kind, const boost::json::object& event) {
    if (kind == "change") {
        Impl::Renderer* renderer = Impl::Renderer::current();
        const std::uint32_t id = nodeId();
        const int index = mCurrent;
        const WString text = currentText();
        mActivated.emit(index);
        if (renderer && renderer->find(id) != this) return;
        mTextActivated.emit(text);
        if (renderer && renderer->find(id) != this) return;
    }
    WFormWidget::browserEvent(kind, event);
}

void WComboBox::describe(Impl::ElementSpec& spec) {
    WFormWidget::describe(spec);
    std::string options = "[";
    for (int i = 0; i < count(); ++i) {
        if (i) options += ',';
        options += "[\"option\",{},";
        Impl::appendJson(options, textAt(i).toUTF8());
        options += ']';
    }
    spec.body(options + "]");
    spec.listen("value");
    spec.listen("change");
    spec.property("selectedIndex", mCurrent);
}

} // namespace Wt
