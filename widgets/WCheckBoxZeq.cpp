#include "widgets/WCheckBoxZeq.h"

#include "db/Db.h"
#include "db/MergeValues.h"
#include "db/ZeqExchange.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"

WCheckBoxZeq::WCheckBoxZeq(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent)
    : Wt::WCheckBox(parent), WWidgetZeq(resource, key, indexed) {
    changed().connect(this, &WCheckBoxZeq::contentChangedHandler);
}

unsigned WCheckBoxZeq::readFromDatabase(const Indexes& indexes, Errors& errors, bool force) {
    if (keepsEdit(force)) return 0;
    bool same = false;
    bool value = false;
    if (!hasNoRecord(indexes)) {
        ZeqExchange exchange(ZeqReqUtil_newGetResource, resource(), __func__);
        ZeqObj_setSelect(exchange.request(), key());
        const unsigned result = mergeValues(records(indexes), value, same, [&](unsigned index, bool& next) {
            if (indexed()) ZeqObj_setUInt32Object(exchange.request(), "query", "index", index);
            if (exchange.send(errors) != 0) return 1U;
            next = ZeqRspUtil_getBooleanParam(exchange.response(), key()) != 0;
            return 0U;
        });
        if (result != 0) return result;
    }
    setCheckState(!same ? Wt::PartiallyChecked : value ? Wt::Checked : Wt::Unchecked);
    clearContentChanged();
    return 0;
}

unsigned WCheckBoxZeq::writeToDatabase(const Indexes& indexes, Errors& errors) {
    if (!hasChangedContent() || hasNoRecord(indexes)) return 0;
    ZeqExchange exchange(ZeqReqUtil_newSetResource, resource(), __func__);
    if (!exchange.ready()) return 1;
    unsigned result = 0;
    for (const unsigned index : records(indexes)) {
        if (indexed()) ZeqReqUtil_setIntegerParam(exchange.request(), "index", index);
        ZeqReqUtil_setBooleanParam(exchange.request(), key(), checkState() == Wt::Checked);
        // A missing answer is no refusal: it does not make the result 1.
        if (exchange.send(errors) != 0 && exchange.response()) result = 1;
    }
    clearContentChanged();
    return result;
}

void WCheckBoxZeq::setZeqParam(json_t* params) {
    if (hasChangedContent() && checkState() != Wt::PartiallyChecked)
        ZeqObj_setBool32(params, key(), checkState() == Wt::Checked);
}

void WCheckBoxZeq::getZeqParam(const json_t* table, const Indexes& indexes, bool force) {
    if (keepsEdit(force)) return;
    if (hasNoRecord(indexes)) return setCheckState(Wt::Unchecked);
    bool value = false;
    bool same = true;
    if (indexes.size() > 1)
        Db::db.extractEnableDisableMerge(table, indexes, key(), value, same);
    else
        Db::db.extractEnableDisable(table, key(), value);
    setCheckState(value ? Wt::Checked : Wt::Unchecked);
    clearContentChanged();
}

void WCheckBoxZeq::contentChangedHandler() {
    markEdited();
}
