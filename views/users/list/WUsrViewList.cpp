#include "views/users/list/WUsrViewList.h"

#include "db/Db.h"
#include "db/ZeqExchange.h"
#include "frame/WNumericSortFilterProxyModel.h"
#include "platform/client/ZeqReq.h"

#include <algorithm>

namespace {

using List = WUsrViewList;

struct User : ZeqRow {
    bool atReceiver;
    bool atConsole;
};

std::string nameOfUser(const User& user) {
    const std::string name = user.text("name");
    return name.empty() ? user.text("mgrName") : name;
}

bool isAdmin(const ZeqRow& user) {
    return ZeqRsp_userGetRole(user.json()) == 2;
}

// Plain words, on purpose not translated.
std::string roleOf(const User& user) {
    return isAdmin(user) ? "Admin" : "User";
}

std::string statusOf(const User& user) {
    constexpr const char* kStatus[2][2] = {
        {"[RSnnn]Not logged in", "[RSnnn]Logged in to console"},
        {"[RSnnn]Logged in to receiver", "[RSnnn]Logged in to console and receiver"},
    };
    return Wt::WString::tr(kStatus[user.atReceiver][user.atConsole]).toUTF8();
}

constexpr RecordColumn<User> kColumns[] = {
    {"Index", RecordIndex{}}, {"[RSnnn]Username", nameOfUser}, {"[RSnnn]Full Name", "fullName"},
    {"[RSnnn]Role", roleOf},  {"[RSnnn]Status", statusOf},
};
static_assert(std::size(kColumns) == List::kColumnCount &&
              columnHeaded(kColumns, "[RSnnn]Username") == List::Name &&
              columnHeaded(kColumns, "[RSnnn]Status") == List::Status);

/// Users of the records of logins. One question for all: asked user by user, two hundred would cost four hundred.
std::set<unsigned> usersIn(const char* logins) {
    std::set<unsigned> users;
    ZeqExchange exchange(ZeqReqUtil_newGetResource, logins, "readFromDatabase");
    if (!exchange.ready()) return users;
    ZeqReqUtil_setSelect(exchange.request(), "userIndex");
    exchange.sendQuietly(); // nobody logged in is told as a refusal
    for (const ZeqRow row : ZeqRows(exchange.response())) users.insert(row.number("userIndex"));
    return users;
}

} // namespace

WUsrViewList::WUsrViewList(const Wt::WString& title, Wt::WContainerWidget* parent)
    : WObjListContextPanel(title, kColumnCount, parent) {
    mTable->setColumns(kColumns);
    mTable->setSelectionMode(Wt::ExtendedSelection);
    mTable->sortByColumn(Name, Wt::AscendingOrder);
}

void WUsrViewList::readFromDatabase() {
    removeAllRows();
    mAtReceivers.clear();
    ZeqClient_s* client = nullptr;
    if (Db::db.getZeqClient(client) != 0) return;
    const ZeqPtr answer =
        zeqRetrieve(ZeqReq_userRetrieve, client, R"(["index","name","mgrName","fullName","role"])");
    mAtReceivers = usersIn("userSession");
    const std::set<unsigned> atConsole = usersIn("adminSession");
    std::vector<User> users;
    for (const ZeqRow row : ZeqRows(answer.get())) {
        const unsigned index = row.number("index");
        // Only an administrator can be at this interface.
        users.push_back({row, mAtReceivers.contains(index), isAdmin(row) && atConsole.contains(index)});
    }
    mTable->addRecords(kColumns, users);
    mTable->setMinimumSize(Wt::WLength(1), Wt::WLength(75));
}

bool WUsrViewList::selectEntryByName(const std::string& name, Wt::WAbstractItemView::ScrollHint hint) {
    for (int row = 0; row < mTable->proxy()->rowCount(); ++row) {
        if (mTable->textAt(mTable->proxy()->index(row, 0), Name) != name) continue;
        selectEntryByRowIndex(row, hint);
        return true;
    }
    return false;
}

void WUsrViewList::selectEntryByRowIndex(int row, Wt::WAbstractItemView::ScrollHint hint) {
    const Wt::WModelIndex index = mTable->proxy()->index(row, 0);
    mTable->clearSelection();
    mTable->select(index);
    mTable->scrollTo(index, hint);
}

bool WUsrViewList::allAreAtReceivers(const std::vector<unsigned>& users) const {
    return std::ranges::all_of(users, [this](unsigned user) { return mAtReceivers.contains(user); });
}

std::string WUsrViewList::nameOf(unsigned user) const {
    return mTable->textAt(mTable->rowOf(user), Name);
}
