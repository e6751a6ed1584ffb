#pragma once

#include "widgets/SettingsField.h"

#include <span>

/// Column of the gallery: what the widget is shown.
enum class State { One, Equal, Different, Disabled, Failed, Invalid };
inline constexpr const char* kStateNames[] = {"One record", "Equal records", "Different records",
                                              "Disabled",   "Failed read",   "Invalid"};
inline constexpr int kStateCount = 6;

/// A widget of the gallery and where its values come from.
struct Specimen {
    enum Feed {
        Text,      // a and b are written to the two records
        Number,    // the same as numbers
        Kept,      // the records as they are
        Singleton, // the one record as it is
        Held,      // a and b are members of a table's rows, as JSON
        ByOwner    // fill() shows the state; there is nothing to read
    };

    const char* name; // of the class
    SettingsFieldMaker make;
    Feed feed;
    const char* resource = "";
    const char* key = "";
    const char* a = "";
    const char* b = "";
    const char* invalid = nullptr; // 0 = the widget has no validator
    void (*fill)(Wt::WWidget* widget, State state) = nullptr;
};

std::span<const Specimen> specimens();
