#pragma once

#include <Wt/WString>
#include <Wt/WWidget>

/// The words that a list, or a page of tabs without tabs, shows while it is empty. The style
/// sheet puts them there.
inline void emptyText(Wt::WWidget& widget, const Wt::WString& text) {
    widget.setAttributeValue("data-empty", text);
}
