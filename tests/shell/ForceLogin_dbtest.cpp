#include "shell/Security.h"
#include "shell/WForceLoginDialog.h"
#include "tests/frame/WidgetSearch.h"
#include "tests/shell/ShellTest.h"
#include "views/sessions/WEstabSesRxTable.h"

#include <Wt/WAbstractItemModel>

namespace {

class ForceLogin : public ShellTest {
protected:
    void SetUp() override {
        session.logIn("admin", ZeqdProcess::kAdminPassword);
        ASSERT_TRUE(session.app().userIsLoggedIn());
        user = session.app().getIndexOfCurrentlyLoggedInUsr();
        store("user", user, "modeAllowed", "share_or_private_mode");
    }

    static int offered(WForceLoginDialog& dialog) {
        return widgetsIn<WEstabSesRxTable>(&dialog).at(0)->model()->rowCount();
    }

    AppSession session;
    unsigned user = 0;
};

TEST_F(ForceLogin, PickedReceiverIsNoLongerOfferedUntilAllLoginsEnd) {
    int before = 0;
    unsigned first = 0;
    {
        WForceLoginDialog dialog(user);
        before = offered(dialog);
        ASSERT_GT(before, 2) << "the demo installation has free receivers";
        auto* login = buttonIn(&dialog, "Login");
        EXPECT_FALSE(login->isEnabled());
        auto* table = widgetsIn<WEstabSesRxTable>(&dialog).at(0);
        table->select(table->model()->index(1, 0));
        dialog.selectionChangedHandler();
        EXPECT_TRUE(login->isEnabled());
        click(login);
        EXPECT_EQ(dialog.buttonClicked(), 1);
        first = dialog.rxSelected();
        ASSERT_NE(first, 0u);
    }
    std::vector<std::string> errors;
    const int loginsBefore = count("userSession");
    ASSERT_EQ(Security_loginRxUser(user, first, errors), 0) << errors.at(0);
    EXPECT_EQ(count("userSession"), loginsBefore + 1);
    WForceLoginDialog dialog(user);
    EXPECT_EQ(offered(dialog), before - 1);
    click(buttonIn(&dialog, "Cancel"));
    EXPECT_EQ(dialog.buttonClicked(), 2);

    EXPECT_NE(Security_loginRxUser(user, first, errors), 0) << "taken";
    EXPECT_FALSE(errors.empty()) << "the refusal has words";

    EXPECT_EQ(Security_logoutUserByUserIndex(user, errors), 0);
    EXPECT_EQ(count("userSession"), loginsBefore);
    EXPECT_NE(Security_logoutUserByRxIndex(first, errors), 0) << "nobody there any more";
}

} // namespace
