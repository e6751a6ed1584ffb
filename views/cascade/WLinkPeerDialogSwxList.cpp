#include "views/cascade/WLinkPeerDialogSwxList.h"

#include "db/Db.h"
#include "platform/client/ZeqReq.h"

#include <ranges>

namespace {

constexpr int kColumnPx = 182;
constexpr int kWidthPx = 400;
constexpr int kHeightPx = 350;

constexpr RecordColumn<> kColumns[] = {
    {"index", RecordIndex{}},
    {"[RSnnn]EID", "eid", kColumnPx},
    {"[RSnnn]Name", "name", kColumnPx},
};

bool canBePeer(const ZeqRow& swx) {
    return swx.text("mode") == "slave" && swx.text("status") == "ready" && swx.text("usage") == "usable";
}

} // namespace

WLinkPeerDialogSwxList::WLinkPeerDialogSwxList(Wt::WContainerWidget* parent) : RecordTable(kColumns, parent) {
    resize(kWidthPx, kHeightPx);
    setColumnResizeEnabled(true);
    setEmptyText(tr("cascade.linkPeerDialog.empty"));
}

void WLinkPeerDialogSwxList::readFromDatabase() {
    clearData();
    ZeqClient_s* client = nullptr;
    if (Db::db.getZeqClient(client) != 0) return;
    const ZeqPtr answer =
        zeqRetrieve(ZeqReq_swxRetrieve, client, R"(["index","eid","name","mode","status","usage"])");
    addRecords(kColumns, ZeqRows(answer.get()) | std::views::filter(canBePeer));
}
