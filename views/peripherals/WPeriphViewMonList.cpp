#include "views/peripherals/WPeriphViewMonList.h"

#include "db/Db.h"
#include "db/ZeqExchange.h"
#include "frame/ActionResults.h"
#include "platform/client/ZeqReq.h"
#include "views/peripherals/Edid.h"

#include <algorithm>

namespace {

using List = WPeriphViewMonList;

constexpr unsigned kRecordSize = 256; // bytes of a stored block

struct Monitor : ZeqRow {
    const List::Block* block;
};

template <std::string List::Block::*kField>
std::string ofBlock(const Monitor& monitor) {
    return monitor.block->*kField;
}

constexpr RecordColumn<Monitor> kColumns[] = {
    {"Index", RecordIndex{}},
    {"[RSnnn]Name", "name"},
    {"[RSnnn]Description", "description"},
    {"[RSnnn]Manufacturer ID", ofBlock<&List::Block::manufacturer>},
    {"[RSnnn]Product Code", ofBlock<&List::Block::product>},
    {"[RSnnn]Type", ofBlock<&List::Block::type>},
};
static_assert(std::size(kColumns) == List::kColumnCount &&
              columnHeaded(kColumns, "[RSnnn]Name") == List::Name &&
              columnHeaded(kColumns, "[RSnnn]Type") == List::Type);

List::Block blockOf(const ZeqRow& record) {
    char bytes[kRecordSize] = {};
    ZeqRspUtil_getBinaryParam(record.json(), "data", bytes, sizeof bytes);
    Edid edid;
    edid.populate(bytes, sizeof bytes);
    List::Block block;
    edid.manufacturerIdGet(block.manufacturer);
    edid.productCodeGet(block.product);
    block.type = Wt::WString::tr(edid.isDigital() ? "[RSnnn]DVI" : "[RSnnn]VGA").toUTF8();
    return block;
}

} // namespace

WPeriphViewMonList::WPeriphViewMonList(const Wt::WString& title, Wt::WContainerWidget* parent)
    : WObjListContextPanel(title, kColumnCount, parent) {
    mTable->setColumns(kColumns);
    mTable->setSelectionMode(Wt::ExtendedSelection);
    mTable->sortByColumn(Name, Wt::AscendingOrder);
    setEmptyText(tr("periph.list.empty"));
}

void WPeriphViewMonList::readFromDatabase() {
    removeAllRows();
    mProtected.clear();
    mComplete = false;
    ZeqClient_s* client = nullptr;
    if (Db::db.getZeqClient(client) != 0) return;
    const ZeqPtr answer =
        zeqRetrieve(ZeqReq_edidRetrieve, client, R"(["index","name","description","isProtected"])");
    const ZeqRows rows(answer.get());
    std::set<unsigned> records;
    for (const ZeqRow row : rows) {
        records.insert(row.number("index"));
        if (row.text("isProtected") == "is_true") mProtected.insert(row.number("index"));
    }
    mComplete = readBlocks(records) && answer;
    mTable->addRecords(kColumns, rows | std::views::transform([this](const ZeqRow& row) {
                                     return Monitor{row, &mBlocks[row.number("index")]};
                                 }));
    if (!mComplete) mBlocks.clear();
    mTable->setMinimumSize(Wt::WLength(1), Wt::WLength(75));
}

bool WPeriphViewMonList::readBlocks(const std::set<unsigned>& records) {
    std::erase_if(mBlocks, [&](const auto& known) { return !records.contains(known.first); });
    if (mBlocks.size() == records.size()) return true;
    ZeqExchange exchange(ZeqReqUtil_newGetResource, "edid", __func__);
    if (!exchange.ready()) return false;
    for (const unsigned record : records)
        if (!mBlocks.contains(record)) ZeqReqUtil_setIntegerQuery(exchange.request(), "index", record);
    for (const char* key : {"index", "data"}) ZeqReqUtil_setSelect(exchange.request(), key);
    std::vector<std::string> errors;
    if (exchange.send(errors) != 0) return false;
    for (const ZeqRow row : ZeqRows(exchange.response())) mBlocks[row.number("index")] = blockOf(row);
    return true;
}

void WPeriphViewMonList::selectedMonsDelete(ActionResults& results) {
    for (const Wt::WModelIndex& row : mTable->selectedIndexes()) {
        results.run(mTable->textAt(row, Name), [&](auto& errors) {
            return Db::db.deleteRecordByIndex("edid", mTable->zeqIndexAt(row), errors);
        });
    }
}

bool WPeriphViewMonList::protectedEdidIsSelected() const {
    const std::vector<unsigned> selected = mTable->selectedZeqIndexes();
    return std::any_of(selected.begin(), selected.end(),
                       [this](unsigned record) { return mProtected.contains(record); });
}

unsigned WPeriphViewMonList::getEdidIndexOfCurrentlySelectedRecord(unsigned& index) const {
    index = mTable->selectedZeqIndex();
    return index == 0 ? 1 : 0;
}

unsigned WPeriphViewMonList::getTypeOfCurrentlySelectedRecord(std::string& text) const {
    text = "???";
    const Wt::WModelIndexSet rows = mTable->selectedIndexes();
    if (rows.size() != 1) return 1;
    text = mTable->textAt(*rows.begin(), Type);
    return 0;
}
