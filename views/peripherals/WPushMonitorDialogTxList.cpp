#include "views/peripherals/WPushMonitorDialogTxList.h"

#include "db/Convert.h"
#include "db/Db.h"
#include "db/HeldRecords.h"
#include "platform/client/ZeqReq.h"

namespace {

std::string typeOf(const ZeqRow& tx) {
    return Convert_detailedDeviceTypeDbStringToTxSubTypeUiString(tx.text("detailedDeviceType"));
}

std::string swxOf(const ZeqRow& tx) {
    std::string name;
    std::vector<std::string> errors;
    Db::db.getSwxNameOrEidFromTxIndex(tx.number("index"), name, errors);
    return name;
}

// Widths in pixels. An EID is read whole.
constexpr RecordColumn<> kColumns[] = {
    {"index", RecordIndex{}},     {"[RSnnn]EID", "eid", 116},    {"[RSnnn]Type", typeOf, 56},
    {"[RSnnn]Name", "name", 209}, {"[RSnnn]Switch", swxOf, 183},
};
static_assert(std::size(kColumns) == WPushMonitorDialogTxList::kColumnCount &&
              columnHeaded(kColumns, "[RSnnn]EID") == WPushMonitorDialogTxList::Eid &&
              columnHeaded(kColumns, "[RSnnn]Type") == WPushMonitorDialogTxList::Type &&
              columnHeaded(kColumns, "[RSnnn]Name") == WPushMonitorDialogTxList::Name);

} // namespace

WPushMonitorDialogTxList::WPushMonitorDialogTxList(Wt::WContainerWidget* parent)
    : RecordTable(kColumns, parent) {
    setSelectionMode(Wt::ExtendedSelection);
    setEmptyText(tr("periph.transmitters.empty"));
    sortByColumn(Name, Wt::AscendingOrder);
}

void WPushMonitorDialogTxList::readFromDatabase() {
    HeldRecords held;
    const HeldRecords::Use use(held);
    read(kColumns, ZeqReq_txRetrieve, R"(["index","eid","name","detailedDeviceType"])");
}
