#include "tests/views/PageTest.h"

#include "db/ZeqPtr.h"
#include "frame/WNumericSortFilterProxyModel.h"
#include "platform/client/ZeqClient.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"

#include <Wt/WComboBox>
#include <Wt/WLineEdit>
#include <Wt/WStandardItemModel>
#include <Wt/WTextArea>

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

PageTest::PageTest() {
    mConnection = session.environment().dialogExecuted().connect(
        boost::function<void(Wt::WDialog*)>([this](Wt::WDialog* dialog) { dialogExecuted(dialog); }));
    session.logIn("admin", ZeqdProcess::kAdminPassword);
}

PageTest::~PageTest() {
    mConnection.disconnect();
    EXPECT_TRUE(mAnswers.empty()) << mAnswers.size() << " dialogs did not come";
}

void PageTest::dialogExecuted(Wt::WDialog* dialog) {
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

void PageTest::answerWith(const std::string& button) {
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

void PageTest::raise(const std::string& message, const char* severity) {
    json_t* request = ZeqReqUtil_newSetResource("simControl");
    ZeqReqUtil_setStringParam(request, "action", "alert");
    ZeqReqUtil_setStringParam(request, "message", message.c_str());
    ZeqReqUtil_setStringParam(request, "severity", severity);
    const ZeqPtr response(exchange(request));
    EXPECT_TRUE(response && !ZeqRspUtil_getObjectParam(response.get(), "errors"));
}

std::vector<std::string> PageTest::linesOf(const RecordTable& table) {
    std::vector<std::string> all;
    for (int i = 0; i < table.proxy()->rowCount(); ++i) {
        std::string line;
        for (int column = 1; column < table.records()->columnCount(); ++column)
            line += (column > 1 ? "|" : "") + table.textAt(table.proxy()->index(i, 0), column);
        all.push_back(line);
    }
    std::ranges::sort(all);
    return all;
}

Wt::WWidget* PageTest::shownTab() const {
    Wt::WTabWidget* page = mDetails->tabWidget(mDetails->shownPage());
    return page->count() > 0 ? page->currentWidget() : nullptr;
}

void PageTest::showTab(const std::string& title) {
    Wt::WTabWidget* page = mDetails->tabWidget(mDetails->shownPage());
    for (int i = 0; i < page->count(); ++i) {
        const std::string text = page->tabText(i).toUTF8();
        if (text != title && text != title + "*") continue; // "*" marks unsaved edits
        page->setCurrentIndex(i);
        page->currentChanged().emit(i);
        return;
    }
    ADD_FAILURE() << "no tab " << title;
}

WSettingsTab& PageTest::tab() const {
    return dynamic_cast<WSettingsTab&>(*shownTab());
}

std::string PageTest::keyOf(Wt::WWidget* widget) {
    const auto* bound = dynamic_cast<WWidgetZeq*>(widget);
    return bound ? bound->key() : "";
}

void PageTest::type(const std::string& key, const std::string& text) {
    auto* form = field<Wt::WFormWidget>(key);
    ASSERT_NE(form, nullptr);
    // What the browser sends: the new value first, then the event.
    if (auto* line = dynamic_cast<Wt::WLineEdit*>(form)) line->Wt::WLineEdit::setText(text);
    if (auto* area = dynamic_cast<Wt::WTextArea*>(form)) area->Wt::WTextArea::setText(text);
    form->blurred().emit();
}

void PageTest::choose(const std::string& key, int item) {
    auto* box = field<Wt::WComboBox>(key);
    ASSERT_NE(box, nullptr);
    box->setCurrentIndex(item);
    box->changed().emit();
}

std::string PageTest::text(const std::string& key) const {
    auto* widget = field<Wt::WWidget>(key);
    if (auto* text = dynamic_cast<Wt::WText*>(widget)) return text->text().toUTF8();
    if (auto* box = dynamic_cast<Wt::WComboBox*>(widget)) return box->currentText().toUTF8();
    auto* form = dynamic_cast<Wt::WFormWidget*>(widget);
    return form ? form->valueText().toUTF8() : "no such field";
}

std::string PageTest::stored(const char* resource, unsigned index, const char* key) {
    json_t* request = ZeqReqUtil_newGetResource(resource);
    if (index != 0) ZeqReqUtil_setIntegerQuery(request, "index", index);
    const ZeqPtr response(exchange(request));
    const char* text = ZeqRspUtil_getStringParam(response.get(), key);
    return text ? text : std::to_string(ZeqRspUtil_getIntegerParam(response.get(), key));
}

void PageTest::remove(const char* resource, unsigned index) {
    json_t* request = ZeqReqUtil_newDeleteResource(resource);
    ZeqReqUtil_setIntegerParam(request, "index", index);
    const ZeqPtr response(exchange(request));
    EXPECT_EQ(ZeqRspUtil_getObjectParam(response.get(), "errors"), nullptr) << resource << " " << index;
}
