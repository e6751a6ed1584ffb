#pragma once

#include "widgets/SettingsField.h"

#include <span>

/// What the choice in another row of the table decides. The row is named by its key: the nearest one above
/// with that key, or else the nearest below.
struct SettingsChoice {
    enum Follows {
        AtOnce,
        AtNextRead,
        JudgedOnly // stays as it is, but is judged only while the choice is made
    };

    const char* key = nullptr; // 0 = none: nothing is decided
    const char* is = "";       // database string of the item
    int item = -1;             // or its number, for a box whose items have no such string
    bool unless = false;       // any other choice, also none
    Follows follows = AtOnce;
};

/// Whether the user may edit this field of these records.
using SettingsEditable = bool (*)(const WWidgetZeq::Indexes& indexes);
inline bool neverEditable(const WWidgetZeq::Indexes&) {
    return false;
}
inline bool editableAlone(const WWidgetZeq::Indexes& indexes) {
    return indexes.size() == 1;
}

/// One row of a settings table. Name the members:
///
///     {.label = "[RSnnn]Location",
///      .make = makeSettingsField<WLineEditZeq>,
///      .key = "location",
///      .maxLength = 64,
///      .pattern = "^([ -~\n]*)$",
///      .tooltip = "tt.dev.rx.attr.loc"},
///
/// Limits left at their start are none. docs/settings-pages.md has an example of each member.
struct SettingsRow {
    const char* label = "";            // message key; "" = none
    SettingsFieldMaker make = nullptr; // 0 = a heading of the rows below, without a value
    const char* key = "";
    const char* resource = nullptr;  // 0 = the table's
    int maxLength = 0;               // characters
    const char* pattern = nullptr;   // regular expression that the whole text must match
    int bottom = 0;                  // a number from bottom to top, if top is above bottom;
    int top = 0;                     // limits the length to the digits of top
    bool mandatory = false;          // with a pattern or a range: an empty field is not valid
    const char* tooltip = nullptr;   // message key
    int width = 0;                   // pixels
    int height = 0;                  // pixels
    const char* cellStyle = nullptr; // 0 = by the widget's class
    const char* style = nullptr;     // 0 = by the widget's class

    SettingsChoice enabledWhen = {};     // otherwise disabled, neither judged nor saved
    SettingsChoice neededWhen = {};      // an empty field is then not valid
    bool emptyUnlessEnabled = false;     // a line edit that loses its text when it is disabled
    SettingsEditable editable = nullptr; // 0 = the table's
    bool judgedForSeveral = true;        // false: isAnyValid() does not ask it

    const char* repeats = nullptr; // key of the password that this field must repeat; itself it is not saved
    const char* differs = nullptr; // what a looked-up text shows where records differ; 0 = nothing

    int column = 1;         // value column; above 1: a second field beside the row above
    unsigned group = 0;     // of records, see WSettingsTable::recordsOf
    bool singleton = false; // the resource has one record, whatever is chosen
    bool byOwner = false;   // the table's class reads and saves it
};

/// What the rows of a settings table have in common.
struct SettingsTableSpec {
    enum class Save {
        OneRequestPerRecord, // and resource, with every changed field in it
        OneExchangePerField
    };

    const char* resource;                                         // of rows that name none
    const char* headings[4] = {"[RSnnn]Setting", "[RSnnn]Value"}; // message keys; "" = an empty cell
    bool indexed = true;                                          // false: singletons
    Save save = Save::OneRequestPerRecord;
    int width = 0;                       // of every field that has no own width, in pixels
    const char* cellStyle = nullptr;     // of every value; 0 = by the widget's class
    SettingsEditable editable = nullptr; // of every field; 0 = what the fields are by themselves
    // Resources of value columns beside each other, each with a field of every row. None: one column.
    std::span<const char* const> columns = {};
};
