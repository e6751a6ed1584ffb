// Events of a browser as they reach a session's widgets: JSON of any shape for a page with a table, tabs, a
// file field and form fields. Node numbers are small and in order, so that a fuzzer finds them.
#include "toolkit/src/test/TestSession.h"

#include <Wt/Test/WTestEnvironment.h>
#include <Wt/WApplication.h>
#include <Wt/WComboBox.h>
#include <Wt/WContainerWidget.h>
#include <Wt/WFileUpload.h>
#include <Wt/WIntValidator.h>
#include <Wt/WLineEdit.h>
#include <Wt/WPushButton.h>
#include <Wt/WSortFilterProxyModel.h>
#include <Wt/WStandardItemModel.h>
#include <Wt/WTabWidget.h>
#include <Wt/WTableView.h>
#include <Wt/WTimer.h>

#include <boost/json/parse.hpp>

#include <cstdint>
#include <functional>
#include <string_view>

namespace {

constexpr int kRows = 300;

struct Page {
    Wt::Test::WTestEnvironment environment;
    Wt::WApplication application{environment};
    Wt::WStandardItemModel model{kRows, 3};
    Wt::WSortFilterProxyModel proxy;
    Wt::WTableView* view = new Wt::WTableView(application.root());
    Wt::WTimer timer;

    Page() {
        for (int row = 0; row < kRows; ++row)
            for (int column = 0; column < 3; ++column) model.setData(row, column, boost::any(row * column));
        proxy.setSourceModel(&model);
        proxy.setDynamicSortFilter(true);
        view->setModel(&proxy);
        view->setSelectionMode(Wt::ExtendedSelection);
        view->doubleClicked().connect(
            [this](const Wt::WModelIndex& index) { proxy.setData(index, boost::any(-index.row())); });
        view->mouseWentDown().connect(std::bind([this] { view->clearSelection(); }));
        auto* tabs = new Wt::WTabWidget(application.root());
        auto* edit = new Wt::WLineEdit;
        edit->setValidator(new Wt::WIntValidator(0, 99));
        tabs->addTab(edit, "one");
        auto* combo = new Wt::WComboBox;
        combo->addItem("a");
        combo->addItem("b");
        tabs->addTab(combo, "two");
        new Wt::WFileUpload(application.root());
        auto* button = new Wt::WPushButton("x", application.root());
        button->clicked().connect(std::bind([this] { model.insertRow(0); }));
        timer.timeout().connect(std::bind([this] {
            if (model.rowCount() > kRows) model.removeRows(0, model.rowCount() - kRows);
        }));
        timer.start();
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Page page;
    boost::json::error_code error;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const boost::json::value events = boost::json::parse(text, error);
    if (error) return 0;
    auto& session = Wt::Impl::TestSession::current();
    session.takeOperations();
    session.session().handlePage(events);
    session.takeOperations();
    for (const Wt::WModelIndex& index : page.view->selectedIndexes())
        if (!index.isValid() || index.row() >= page.proxy.rowCount()) __builtin_trap();
    return 0;
}
