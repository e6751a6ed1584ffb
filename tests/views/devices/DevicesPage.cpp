#include "tests/views/devices/DevicesPage.h"

#include "db/ZeqPtr.h"
#include "frame/WAutoSizeTableView.h"
#include "frame/WNavAccordionStdCell.h"
#include "frame/WNumericSortFilterProxyModel.h"
#include "platform/client/ZeqClient.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"
#include "views/devices/list/WDevViewList.h"

#include <Wt/WComboBox>
#include <Wt/WLineEdit>
#include <Wt/WTabWidget>
#include <Wt/WTextArea>

#include <boost/any.hpp>

#include <algorithm>

namespace {

json_t* exchange(json_t* request) {
    ZeqClient_s* client = ZeqClient_new();
    const ZeqPtr own(request);
    json_t* response = ZeqClient_getResponse(client, request);
    ZeqClient_close(client);
    return response;
}

} // namespace

DevicesPage::DevicesPage() {
    mConnection = session.environment().dialogExecuted().connect(
        boost::function<void(Wt::WDialog*)>([this](Wt::WDialog* dialog) { dialogExecuted(dialog); }));
    session.logIn("admin", ZeqdProcess::kAdminPassword);
    Wt::WTabWidget* tabs = session.probe().tabs();
    for (int i = 0; i < tabs->count() && !view; ++i) view = dynamic_cast<WDevView*>(tabs->widget(i));
    if (!view) throw std::runtime_error("no Devices tab");
    view->readFromDatabase(true, true);
}

DevicesPage::~DevicesPage() {
    mConnection.disconnect();
    EXPECT_TRUE(mAnswers.empty()) << mAnswers.size() << " dialogs did not come";
}

void DevicesPage::dialogExecuted(Wt::WDialog* dialog) {
    shown.push_back(textIn(dialog));
    if (mAnswers.empty()) {
        ADD_FAILURE() << "unexpected dialog: " << shown.back();
        dialog->reject();
        return;
    }
    const auto what = mAnswers.front();
    mAnswers.pop_front();
    what(*dialog);
}

void DevicesPage::answerWith(const std::string& button) {
    answer([button](Wt::WDialog& dialog) {
        Wt::WPushButton* found = buttonIn(&dialog, button);
        if (found) {
            click(found);
        } else {
            ADD_FAILURE() << "no button " << button << " in: " << textIn(&dialog);
            dialog.reject();
        }
    });
}

void DevicesPage::select(const std::vector<std::string>& names) {
    const WNumericSortFilterProxyModel* proxy = view->list()->proxy();
    Wt::WModelIndexSet rows;
    for (int row = 0; row < proxy->rowCount(); ++row) {
        const auto name = boost::any_cast<std::string>(proxy->data(row, WDevViewList::Name, Wt::EditRole));
        if (std::find(names.begin(), names.end(), name) != names.end()) rows.insert(proxy->index(row, 0));
    }
    EXPECT_EQ(rows.size(), names.size());
    view->list()->table()->setSelectedIndexes(rows);
    view->list()->table()->selectionChanged().emit();
}

Wt::WWidget* DevicesPage::shownTab() const {
    Wt::WTabWidget* page = view->details()->tabWidget(view->details()->shownPage());
    return page->count() > 0 ? page->currentWidget() : nullptr;
}

void DevicesPage::showTab(const std::string& title) {
    Wt::WTabWidget* page = view->details()->tabWidget(view->details()->shownPage());
    for (int i = 0; i < page->count(); ++i) {
        if (page->tabText(i).toUTF8() != title) continue;
        page->setCurrentIndex(i);
        view->detailsTabChangedHandler();
        return;
    }
    ADD_FAILURE() << "no tab " << title;
}

WSettingsTab& DevicesPage::tab() const {
    return dynamic_cast<WSettingsTab&>(*shownTab());
}

bool DevicesPage::isOnShow(Wt::WWidget* widget) const {
    const auto all = widgetsIn<Wt::WWidget>(shownTab());
    return std::find(all.begin(), all.end(), widget) != all.end();
}

std::string DevicesPage::keyOf(Wt::WWidget* widget) {
    const auto* bound = dynamic_cast<WWidgetZeq*>(widget);
    return bound ? bound->key() : "";
}

void DevicesPage::type(const std::string& key, const std::string& text) {
    auto* form = field<Wt::WFormWidget>(key);
    ASSERT_NE(form, nullptr);
    // What the browser sends: the new value first, then the event.
    if (auto* line = dynamic_cast<Wt::WLineEdit*>(form)) line->Wt::WLineEdit::setText(text);
    if (auto* area = dynamic_cast<Wt::WTextArea*>(form)) area->Wt::WTextArea::setText(text);
    form->blurred().emit();
}

void DevicesPage::choose(const std::string& key, int item) {
    auto* box = field<Wt::WComboBox>(key);
    ASSERT_NE(box, nullptr);
    box->setCurrentIndex(item);
    box->changed().emit();
}

std::string DevicesPage::text(const std::string& key) const {
    auto* widget = field<Wt::WWidget>(key);
    if (auto* text = dynamic_cast<Wt::WText*>(widget)) return text->text().toUTF8();
    if (auto* box = dynamic_cast<Wt::WComboBox*>(widget)) return box->currentText().toUTF8();
    auto* form = dynamic_cast<Wt::WFormWidget*>(widget);
    return form ? form->valueText().toUTF8() : "no such field";
}

std::vector<std::string> DevicesPage::selected() const {
    std::vector<std::string> names;
    for (const Wt::WModelIndex& index : view->list()->table()->selectedIndexes())
        names.push_back(boost::any_cast<std::string>(
            view->list()->proxy()->data(index.row(), WDevViewList::Name, Wt::EditRole)));
    return names;
}

std::string DevicesPage::cell(const std::string& name, int column) const {
    const WNumericSortFilterProxyModel* proxy = view->list()->proxy();
    for (int row = 0; row < proxy->rowCount(); ++row) {
        if (boost::any_cast<std::string>(proxy->data(row, WDevViewList::Name, Wt::EditRole)) == name)
            return boost::any_cast<std::string>(proxy->data(row, column, Wt::EditRole));
    }
    return "no row " + name;
}

Wt::WPushButton* DevicesPage::cellButton(DeviceAction action) const {
    return view->actionCell(action)->actionButton();
}

std::string DevicesPage::actions() const {
    std::string enabled;
    for (int i = 0; i < kDeviceActionCount; ++i)
        enabled += cellButton(DeviceAction(i))->isDisabled() ? '.' : 'X';
    return enabled;
}

std::string DevicesPage::stored(const char* resource, unsigned index, const char* key) {
    json_t* request = ZeqReqUtil_newGetResource(resource);
    if (index != 0) ZeqReqUtil_setIntegerQuery(request, "index", index);
    const ZeqPtr response(exchange(request));
    const char* text = ZeqRspUtil_getStringParam(response.get(), key);
    return text ? text : std::to_string(ZeqRspUtil_getIntegerParam(response.get(), key));
}

void DevicesPage::remove(const char* resource, unsigned index) {
    json_t* request = ZeqReqUtil_newDeleteResource(resource);
    ZeqReqUtil_setIntegerParam(request, "index", index);
    const ZeqPtr response(exchange(request));
    EXPECT_EQ(ZeqRspUtil_getObjectParam(response.get(), "errors"), nullptr) << resource << " " << index;
}
