#pragma once

#include <Wt/WTable>

#include <array>
#include <span>
#include <string>
#include <vector>

namespace Wt {
class WText;
}

/// How a value of a USB diagnosis is shown.
enum class UsbFormat { Group, Version, Hex2, Hex4, Hex8 };

struct UsbDiagRow {
    const char* label; // message key
    const char* key = nullptr;
    UsbFormat format = UsbFormat::Group; // a heading of the rows below, without a value
};

/// The text of a value: a version is the high and the low byte of its low 16 bits.
std::string usbDiagText(UsbFormat format, unsigned value);

/// State of the USB transport in one device. Empty unless exactly one device is selected and it answers.
class UsbDiagTable : public Wt::WTable {
public:
    void readFromDatabase(const std::vector<unsigned>& indexes);
    void clearValues();

protected:
    /// `resource` and rows are constants, not owned.
    UsbDiagTable(const char* resource, std::span<const UsbDiagRow> rows, Wt::WContainerWidget* parent);

    /// Finds the record to show for the selected device. False: there is none to show.
    virtual bool findRecord(unsigned deviceIndex, unsigned& recordIndex) = 0;

private:
    bool show(unsigned recordIndex);

    const char* mResource;
    std::span<const UsbDiagRow> mRows;
    std::vector<Wt::WText*> mValues; // by row; null for a heading
};

/// Transmitter's side, in the words of the page it stands on.
struct UsbTxGroupKeys {
    const char* hcp;
    const char* hrp;
    const char* hsp;
};
inline constexpr std::size_t kUsbTxRowCount = 20;
constexpr std::array<UsbDiagRow, kUsbTxRowCount> usbTxRows(const UsbTxGroupKeys& groups) {
    return {{
        {groups.hcp},
        {"[RSnnn]Version", "hcpVersion", UsbFormat::Version},
        {"[RSnnn]Status", "hcpStatus", UsbFormat::Hex2},
        {"[RSnnn]Flags", "hcpFlags", UsbFormat::Hex2},
        {"[RSnnn]EState", "hcpEState", UsbFormat::Hex2},
        {"[RSnnn]Hub1", "hcpHub1", UsbFormat::Hex2},
        {"[RSnnn]Hub2", "hcpHub2", UsbFormat::Hex2},
        {"[RSnnn]HID", "hcpHid", UsbFormat::Hex2},
        {"[RSnnn]TxState", "hcpTxState", UsbFormat::Hex2},
        {"[RSnnn]GFlags", "hcpGFlags", UsbFormat::Hex2},
        {"[RSnnn]TFlags", "hcpTFlags", UsbFormat::Hex2},
        {"[RSnnn]Count", "hcpCount", UsbFormat::Hex2},
        {"[RSnnn]LastDevNum", "hcpLastDevNum", UsbFormat::Hex2},
        {"[RSnnn]LastDevEndPt", "hcpLastDevEndPt", UsbFormat::Hex2},
        {groups.hrp},
        {"[RSnnn]Version", "hrpVersion", UsbFormat::Version},
        {"[RSnnn]Status", "hrpStatus", UsbFormat::Hex2},
        {groups.hsp},
        {"[RSnnn]Version", "hspVersion", UsbFormat::Version},
        {"[RSnnn]Status", "hspStatus", UsbFormat::Hex2},
    }};
}
