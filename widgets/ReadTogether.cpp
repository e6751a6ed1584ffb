#include "widgets/ReadTogether.h"

#include "db/ZeqExchange.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"
#include "widgets/WComboBoxZeq.h"
#include "widgets/ZeqField.h"
#include "widgets/ZeqRecordBox.h"

#include <algorithm>
#include <string_view>

namespace {

/// These show the same for a value whether they read it or find it in a response.
template <class... Classes>
bool isAny(WWidgetZeq* bound) {
    return ((dynamic_cast<Classes*>(bound) != nullptr) || ...);
}

} // namespace

bool isReadTogether(const SettingsField& field, const char* resource) {
    return field.bound && field.bound->indexed() && field.bound->key()[0] != '\0' &&
           std::string_view(field.bound->resource()) == resource &&
           isAny<ZeqField<std::string>, ZeqField<unsigned>, WComboBoxZeq, ZeqRecordBox<std::string>,
                 ZeqRecordBox<unsigned>>(field.bound);
}

bool readTogether(std::span<const SettingsField> fields, const char* resource,
                  const WWidgetZeq::Indexes& indexes, bool force) {
    const auto together = [&](const SettingsField& field) { return isReadTogether(field, resource); };
    if (indexes.size() < 2 || std::none_of(fields.begin(), fields.end(), together)) return false;
    ZeqExchange exchange(ZeqReqUtil_newGetResource, resource, __func__);
    if (!exchange.ready()) return false;
    for (const unsigned index : indexes) ZeqReqUtil_setIntegerQuery(exchange.request(), "index", index);
    ZeqReqUtil_setSelect(exchange.request(), "index");
    for (const SettingsField& field : fields)
        if (together(field)) ZeqReqUtil_setSelect(exchange.request(), field.bound->key());
    if (exchange.sendQuietly() != 0 ||
        ZeqRspUtil_numEntries(exchange.response()) != static_cast<int>(indexes.size()))
        return false;
    for (const SettingsField& field : fields)
        if (together(field)) field.bound->getZeqParam(exchange.response(), indexes, force);
    return true;
}
