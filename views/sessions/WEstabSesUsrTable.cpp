#include "views/sessions/WEstabSesUsrTable.h"

#include "platform/client/ZeqReq.h"
#include "views/sessions/AccessModes.h"

#include <vector>

namespace {

std::string nameOf(const ZeqRow& user) {
    const std::string name = user.text("name");
    return name.empty() ? user.text("mgrName") : name;
}

constexpr RecordColumn<> kColumns[] = {
    {"index", RecordIndex{}},
    {"[RSnnn]Username", nameOf},
};

} // namespace

WEstabSesUsrTable::WEstabSesUsrTable(Wt::WContainerWidget* parent) : WEstabSesTable(kColumns, parent) {}

void WEstabSesUsrTable::readFromDatabase(Info_ConnectionMode mode) {
    const ZeqPtr users = retrieve(ZeqReq_userRetrieve, R"(["index","name","mgrName","modeAllowed"])");
    std::vector<ZeqRow> offered;
    for (const ZeqRow user : ZeqRows(users.get())) {
        const auto allowed = static_cast<Info_AccessMode>(ZeqRsp_userGetModeAllowed(user.json()));
        if (!accessModesClash(static_cast<Info_AccessMode>(mode), allowed)) offered.push_back(user);
    }
    addRecords(kColumns, offered);
}
