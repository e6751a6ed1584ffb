#pragma once

#include "widgets/SettingsRow.h"
#include "widgets/WLineEditZeq.h"
#include "widgets/WTextAreaZeq.h"

#include <array>

/// Message keys of a device's attribute rows.
struct AttribKeys {
    const char* nameLabel;
    const char* nameTip;
    const char* locationTip;
    const char* descriptionTip;
    const char* notesTip;
};

inline constexpr const char* kAttribHeading = "[RSnnn]Attribute";
inline constexpr int kAttribWidth = 250; // pixels

/// Name, location, description and notes: alike in every kind of device but for the words. Printable ASCII;
/// the texts of several lines are limited by their pattern alone, which counts line ends too.
constexpr std::array<SettingsRow, 4> attribRows(const AttribKeys& keys) {
    return {{
        {.label = keys.nameLabel,
         .make = makeSettingsField<WLineEditZeq>,
         .key = "name",
         .maxLength = 40,
         .pattern = "^([ -~]*)$",
         .tooltip = keys.nameTip},
        {.label = "[RSnnn]Location",
         .make = makeSettingsField<WLineEditZeq>,
         .key = "location",
         .maxLength = 64,
         .pattern = "^([ -~\n]*)$",
         .tooltip = keys.locationTip},
        {.label = "[RSnnn]Description",
         .make = makeSettingsField<WTextAreaZeq>,
         .key = "description",
         .pattern = "([ -~\n]{0,64})",
         .tooltip = keys.descriptionTip,
         .height = 54},
        {.label = "[RSnnn]Notes",
         .make = makeSettingsField<WTextAreaZeq>,
         .key = "notes",
         .pattern = "([ -~\n]{0,64})",
         .tooltip = keys.notesTip,
         .height = 54},
    }};
}
