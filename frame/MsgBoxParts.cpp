#include "frame/MsgBoxParts.h"

#include <Wt/WContainerWidget>
#include <Wt/WPushButton>
#include <Wt/WText>

const char* msgBoxImage(int type) {
    static constexpr const char* kImages[] = {"event-severity-info.png", "event-severity-warning.png",
                                              "event-severity-error.png"};
    return kImages[type == 0 || type == 1 ? type : 2];
}

Wt::WText* newMsgBoxText(const Wt::WString& text) {
    auto* widget = new Wt::WText(text, Wt::PlainText);
    widget->addStyleClass("mirl-dialog-message");
    return widget;
}

Wt::WPushButton* newMsgBoxButton(const Wt::WString& text, Wt::WContainerWidget* cell) {
    auto* button = new Wt::WPushButton(text, cell);
    button->setMargin(kMsgBoxButtonPaddingPx);
    return button;
}

Wt::WContainerWidget* newMsgBoxButtonRow(Wt::WContainerWidget* parent) {
    auto* row = new Wt::WContainerWidget(parent);
    row->setContentAlignment(Wt::AlignRight);
    row->addStyleClass("mirl-dialog-buttons");
    return row;
}
