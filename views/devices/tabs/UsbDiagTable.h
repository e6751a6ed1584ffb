#pragma once

#include "widgets/WSettingsTable.h"
#include "widgets/WUInt32Zeq.h"

#include <string>

/// How a value of a USB diagnosis is shown.
enum class UsbFormat { Version, Hex2, Hex4, Hex8 };

/// The text of a value: a version is the high and the low byte of its low 16 bits.
std::string usbDiagText(UsbFormat format, unsigned value);

template <UsbFormat kFormat>
SettingsField makeUsbValue(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* cell) {
    auto* number = new WUInt32Zeq(resource, key, indexed, cell);
    number->setDisplayFormat([](unsigned value) { return usbDiagText(kFormat, value); });
    SettingsField field;
    field.widget = number;
    field.bound = number;
    return field;
}

template <UsbFormat kFormat>
constexpr SettingsRow usbRow(const char* label, const char* key) {
    return {.label = label, .make = makeUsbValue<kFormat>, .key = key};
}

/// A heading of the rows below.
constexpr SettingsRow usbGroup(const char* label) {
    return {.label = label};
}

/// State of the USB transport in one device. Empty unless exactly one device is selected and it answers.
class UsbDiagTable : public WSettingsTable {
protected:
    /// Index of the record to show for the selected device; 0: there is none to show.
    using FindRecord = unsigned (*)(unsigned deviceIndex);

    /// `spec` and rows are constants, not owned.
    UsbDiagTable(const SettingsTableSpec& spec, std::span<const SettingsRow> rows, FindRecord finder,
                 Wt::WContainerWidget* parent)
        : WSettingsTable(spec, rows, parent), mFind(finder) {}

    Indexes recordsOf(unsigned group, const Indexes& chosen) override;

private:
    FindRecord mFind;
};

constexpr SettingsTableSpec usbSpec(const char* resource) {
    return {.resource = resource,
            .headings = {"", "[RSnnn]Value"},
            .cellStyle = "mirl-multi-col-attribute-table-read-only-cell"};
}
