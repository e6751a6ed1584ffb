#include "views/peripherals/WPeriphViewMonDecode.h"

#include "db/Db.h"
#include "db/ZeqExchange.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"
#include "views/peripherals/Edid.h"

#include <Wt/WTextArea>

namespace {

constexpr unsigned kRecordSize = 256; // bytes of a stored block

/// Empty when the record cannot be read; a refusal is logged.
std::string reportOn(unsigned record) {
    ZeqClient_s* client = nullptr;
    if (Db::db.getZeqClient(client) != 0) return "";
    const ZeqPtr answer = zeqRetrieve(ZeqReq_edidRetrieveByIndex, client, record);
    std::vector<std::string> errors;
    if (!answer || zeqRefused(answer.get(), errors) != 0) return "";
    char bytes[kRecordSize] = {};
    ZeqRspUtil_getBinaryParam(answer.get(), "data", bytes, sizeof bytes);
    Edid edid;
    edid.populate(bytes, sizeof bytes);
    std::string report;
    edid.fullDecodeGet(report);
    return Edid::legible(report);
}

} // namespace

WPeriphViewMonDecode::WPeriphViewMonDecode(Wt::WContainerWidget* parent)
    : Wt::WContainerWidget(parent), mText(new Wt::WTextArea(this)) {
    mText->setStyleClass("mirl-edid-decode-text-area");
    mText->setReadOnly(true);
    mText->setAttributeValue("aria-label", tr("[RSnnn]Decoded EDID"));
    mText->setAttributeValue("spellcheck", "false");
}

bool WPeriphViewMonDecode::hasSelectedText() const {
    return mText->hasSelectedText();
}

void WPeriphViewMonDecode::readFromDatabase(const std::vector<unsigned>& indexes) {
    const unsigned record = indexes.size() == 1 ? indexes.front() : 0;
    if (record != 0 && record == mShown) return; // a block never changes
    const std::string report = record == 0 ? "" : reportOn(record);
    mShown = report.empty() ? 0 : record;
    mText->setText(Wt::WString::fromUTF8(report));
}
