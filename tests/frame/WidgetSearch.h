#pragma once

#include <Wt/WContainerWidget>
#include <Wt/WDialog>
#include <Wt/WPushButton>
#include <Wt/WTabWidget>
#include <Wt/WTable>
#include <Wt/WTableCell>
#include <Wt/WText>

#include <string>
#include <vector>

/// Calls f with the widget and everything in it, in the order in which a reader meets them.
template <class F>
void walkWidgets(Wt::WWidget* widget, const F& f) {
    f(widget);
    if (auto* table = dynamic_cast<Wt::WTable*>(widget)) {
        for (int row = 0; row < table->rowCount(); ++row)
            for (int column = 0; column < table->columnCount(); ++column)
                walkWidgets(table->elementAt(row, column), f);
    } else if (auto* dialog = dynamic_cast<Wt::WDialog*>(widget)) {
        walkWidgets(dialog->contents(), f);
    } else if (auto* tabs = dynamic_cast<Wt::WTabWidget*>(widget)) {
        for (int i = 0; i < tabs->count(); ++i) walkWidgets(tabs->widget(i), f);
    } else if (auto* container = dynamic_cast<Wt::WContainerWidget*>(widget)) {
        for (Wt::WWidget* child : container->children()) walkWidgets(child, f);
    }
}

template <class Widget>
std::vector<Widget*> widgetsIn(Wt::WWidget* top) {
    std::vector<Widget*> found;
    walkWidgets(top, [&](Wt::WWidget* widget) {
        if (auto* match = dynamic_cast<Widget*>(widget)) found.push_back(match);
    });
    return found;
}

/// Texts in reading order, one a line.
inline std::string textIn(Wt::WWidget* top) {
    std::string all;
    for (Wt::WText* text : widgetsIn<Wt::WText>(top)) all += text->text().toUTF8() + "\n";
    return all;
}

/// The button with that text; null when there is none.
inline Wt::WPushButton* buttonIn(Wt::WWidget* top, const std::string& text) {
    for (Wt::WPushButton* button : widgetsIn<Wt::WPushButton>(top))
        if (button->text().toUTF8() == text) return button;
    return nullptr;
}

inline void click(Wt::WInteractWidget* widget) {
    widget->clicked().emit(Wt::WMouseEvent());
}
