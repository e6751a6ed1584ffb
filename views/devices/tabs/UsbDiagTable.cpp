#include "views/devices/tabs/UsbDiagTable.h"

#include "db/Db.h"
#include "db/ZeqExchange.h"
#include "platform/client/ZeqReq.h"

#include <Wt/WTableCell>
#include <Wt/WText>

#include <cstdio>

std::string usbDiagText(UsbFormat format, unsigned value) {
    char text[30];
    switch (format) {
    case UsbFormat::Version:
        std::snprintf(text, sizeof text, "%d.%d", int(value >> 8 & 0xFF), int(value & 0xFF));
        break;
    case UsbFormat::Hex2:
        std::snprintf(text, sizeof text, "0x%02X", value);
        break;
    case UsbFormat::Hex4:
        std::snprintf(text, sizeof text, "0x%04X", value);
        break;
    case UsbFormat::Hex8:
        std::snprintf(text, sizeof text, "0x%08X", value);
        break;
    case UsbFormat::Group:
        return "";
    }
    return text;
}

UsbDiagTable::UsbDiagTable(const char* resource, std::span<const UsbDiagRow> rows,
                           Wt::WContainerWidget* parent)
    : Wt::WTable(parent), mResource(resource), mRows(rows) {
    setHeaderCount(1);
    for (int column = 0; column < 2; ++column)
        elementAt(0, column)->setStyleClass("mirl-attribute-table-heading");
    new Wt::WText(tr("[RSnnn]Value"), elementAt(0, 1));
    for (const UsbDiagRow& row : rows) {
        const int place = rowCount();
        auto* label = new Wt::WText(tr(row.label), elementAt(place, 0));
        const bool group = row.format == UsbFormat::Group;
        label->setStyleClass(group ? "mirl-attribute-table-group-label" : "mirl-attribute-table-label");
        mValues.push_back(group ? nullptr : new Wt::WText(elementAt(place, 1)));
        if (!group) elementAt(place, 1)->setStyleClass("mirl-multi-col-attribute-table-read-only-cell");
    }
}

void UsbDiagTable::clearValues() {
    for (Wt::WText* value : mValues) {
        if (value) value->setText("");
    }
}

void UsbDiagTable::readFromDatabase(const std::vector<unsigned>& indexes) {
    unsigned recordIndex = 0;
    if (indexes.size() != 1 || !findRecord(indexes[0], recordIndex) || !show(recordIndex)) clearValues();
}

bool UsbDiagTable::show(unsigned recordIndex) {
    ZeqExchange exchange(ZeqReqUtil_newGetResource, mResource, __func__);
    if (!exchange.ready()) return false;
    ZeqReqUtil_setIntegerQuery(exchange.request(), "index", recordIndex);
    std::vector<std::string> errors;
    if (exchange.send(errors) != 0) return false;
    for (std::size_t i = 0; i < mRows.size(); ++i) {
        if (!mValues[i]) continue;
        unsigned value = 0;
        Db::db.extractUInt32(exchange.response(), mRows[i].key, value);
        mValues[i]->setText(usbDiagText(mRows[i].format, value));
    }
    return true;
}
