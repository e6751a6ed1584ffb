#pragma once

#include "widgets/SettingsField.h"

/// One row of a settings table. Name the members:
///
///     {.label = "[RSnnn]Location", .make = makeSettingsField<WLineEditZeq>, .key = "location", .maxLength =
///     64,
///      .pattern = "^([ -~\n]*)$", .tooltip = "tt.dev.rx.attr.loc"},
///
/// Limits left at their start are none.
struct SettingsRow {
    const char* label;                 // message key
    SettingsFieldMaker make = nullptr; // 0 = a heading of the rows below, without a value
    const char* key = "";
    const char* resource = nullptr; // 0 = the table's
    int maxLength = 0;              // characters
    const char* pattern = nullptr;  // regular expression that the whole text must match
    int bottom = 0;         // a number from bottom to top, if top is above bottom; limits the length to the
    int top = 0;            // digits of top
    bool mandatory = false; // with a pattern or a range: an empty field is not valid
    const char* tooltip = nullptr;   // message key
    int width = 0;                   // pixels
    int height = 0;                  // pixels
    const char* cellStyle = nullptr; // 0 = by the widget's class
    const char* style = nullptr;     // 0 = by the widget's class
};

/// What the rows of a settings table have in common.
struct SettingsTableSpec {
    enum class Save {
        OneRequestPerRecord, // with every changed field in it
        OneExchangePerField
    };

    const char* resource; // of the requests, and of the rows unless rowResource says otherwise
    const char* rowResource = nullptr;
    const char* headings[2] = {"[RSnnn]Setting", "[RSnnn]Value"};
    bool indexed = true; // false: singletons
    Save save = Save::OneRequestPerRecord;
    bool refusalFails =
        true; // false: what the service refuses is logged and listed, and the save counts as done
    // Sub-objects of the record that hold the fields, outermost first; 0 = none. The table is then read with
    // one request for all records, and the fields are written into the same sub-objects.
    const char* path[2] = {};
    int width = 0; // of every field that has no own width, in pixels
};
