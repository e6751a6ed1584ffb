#pragma once

#include "widgets/WWidgetZeq.h"

#include <Wt/WAnchor>
#include <Wt/WComboBox>
#include <Wt/WLineEdit>
#include <Wt/WStackedWidget>
#include <Wt/WText>
#include <Wt/WTextArea>

#include <concepts>

/// A text that is looked up from records rather than bound to one field.
class WLookupText;

// Style classes of the settings tables.
inline constexpr const char* kReadWriteCell = "mirl-attribute-table-read-write-cell";
inline constexpr const char* kReadWriteNonTextCell = "mirl-attribute-table-read-write-non-text-cell";
inline constexpr const char* kReadOnlyCell = "mirl-attribute-table-read-only-cell";
inline constexpr const char* kLineEditStyle = "mirl-attribute-table-read-write-line-edit";
inline constexpr const char* kTextAreaStyle = "mirl-attribute-table-read-write-multi-line-edit";
inline constexpr const char* kComboBoxStyle = "mirl-attribute-table-read-write-combo-box";

/// What gives a field its accessible name.
enum class NamedBy {
    ItsText,      // shown text and links speak for themselves
    Label,        // the visible label of the row
    LabelAndValue // the same for a button that shows a value: "Icon, Icon 7"
};

/// What a row of a settings table holds in its value cell. Owned by the cell.
struct SettingsField {
    Wt::WWidget* widget = nullptr;
    WWidgetZeq* bound = nullptr;     // 0 for a looked-up text
    WLookupText* lookup = nullptr;   // 0 for a bound widget
    Wt::WFormWidget* form = nullptr; // 0 when it cannot be validated
    // Called at every read with the records on show, for what is bound to no field or has more to do; 0 = no.
    void (*refresh)(Wt::WWidget& widget, const WWidgetZeq::Indexes& indexes) = nullptr;
    const char* cellStyle = kReadOnlyCell;
    const char* style = nullptr; // 0 = none
    NamedBy namedBy = NamedBy::ItsText;
};

/// Makes a row's widget in its cell.
using SettingsFieldMaker = SettingsField (*)(const char* resource, const char* key, bool indexed,
                                             Wt::WContainerWidget* cell);

template <class Widget>
constexpr const char* settingsStyleOf() {
    if (std::derived_from<Widget, Wt::WTextArea>) return kTextAreaStyle;
    if (std::derived_from<Widget, Wt::WLineEdit>) return kLineEditStyle;
    return std::derived_from<Widget, Wt::WComboBox> ? kComboBoxStyle : nullptr;
}

template <class Widget>
constexpr NamedBy settingsNameOf() {
    if (std::derived_from<Widget, Wt::WStackedWidget>) return NamedBy::LabelAndValue;
    if (std::derived_from<Widget, Wt::WFormWidget>) return NamedBy::Label;
    const bool group =
        std::derived_from<Widget, Wt::WContainerWidget> && !std::derived_from<Widget, Wt::WAnchor>;
    return group ? NamedBy::Label : NamedBy::ItsText;
}

/// Widgets are made from (resource, key, indexed, cell), else from (indexed, cell), else from the cell alone;
/// with arguments of their own, from these and the cell.
template <class Widget, auto... kArguments>
SettingsField makeSettingsField(const char* resource, const char* key, bool indexed,
                                Wt::WContainerWidget* cell) {
    SettingsField field;
    Widget* widget = nullptr;
    if constexpr (sizeof...(kArguments) > 0)
        widget = new Widget(kArguments..., cell);
    else if constexpr (std::constructible_from<Widget, const char*, const char*, bool, Wt::WContainerWidget*>)
        widget = new Widget(resource, key, indexed, cell);
    else if constexpr (std::constructible_from<Widget, const char*, const char*, Wt::WContainerWidget*>)
        widget = new Widget(resource, key, cell);
    else if constexpr (std::constructible_from<Widget, bool, Wt::WContainerWidget*>)
        widget = new Widget(indexed, cell);
    else
        widget = new Widget(cell);
    field.widget = widget;
    if constexpr (std::derived_from<Widget, WWidgetZeq>) field.bound = widget;
    if constexpr (std::derived_from<Widget, WLookupText>) field.lookup = widget;
    if constexpr (std::derived_from<Widget, Wt::WFormWidget>) field.form = widget;
    if constexpr (requires { widget->readFromDatabase(); })
        field.refresh = [](Wt::WWidget& shown, const WWidgetZeq::Indexes&) {
            dynamic_cast<Widget&>(shown).readFromDatabase();
        };
    field.style = settingsStyleOf<Widget>();
    field.namedBy = settingsNameOf<Widget>();
    if (!std::derived_from<Widget, Wt::WText>) field.cellStyle = kReadWriteCell;
    return field;
}
