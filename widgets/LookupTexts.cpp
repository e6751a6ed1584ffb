#include "widgets/LookupTexts.h"

#include "db/Db.h"

namespace {

using Errors = WLookupText::Errors;

// A lookup of Db as the plain function that WLookupText takes.
template <unsigned (Db::*kLookup)(unsigned, std::string&, Db::Errors&)>
unsigned ask(unsigned index, std::string& text, Errors& errors) {
    return (Db::db.*kLookup)(index, text, errors);
}

template <unsigned (Db::*kLookup)(unsigned, unsigned&, unsigned&, Db::Errors&)>
unsigned askPort(unsigned index, std::string& text, Errors& errors) {
    unsigned swx = 0;
    unsigned port = 0;
    const unsigned result = (Db::db.*kLookup)(index, swx, port, errors);
    text = std::to_string(port);
    return result;
}

unsigned askKeyboardLayout(unsigned index, std::string& text, Errors& errors) {
    std::string layout;
    const unsigned result = Db::db.getKeyboardLayoutFromRxIndex(index, layout, errors);
    text = Wt::WString::tr("keyboardLayout.text." + layout).toUTF8();
    return result;
}

} // namespace

WTextRxStatus::WTextRxStatus(Wt::WContainerWidget* parent)
    : WLookupText(ask<&Db::getRxOverallStatus>, parent, Shows::FirstRecord) {}

WTextTxStatus::WTextTxStatus(Wt::WContainerWidget* parent)
    : WLookupText(ask<&Db::getTxOverallStatus>, parent) {}

WTextSwxStatus::WTextSwxStatus(Wt::WContainerWidget* parent)
    : WLookupText(ask<&Db::getSwxOverallStatus>, parent) {}

WTextRxSesMode::WTextRxSesMode(Wt::WContainerWidget* parent)
    : WLookupText(ask<&Db::getSessionModeFromRxIndex>, parent) {}

WTextTxSesMode::WTextTxSesMode(Wt::WContainerWidget* parent)
    : WLookupText(ask<&Db::getSessionModeFromTxIndex>, parent) {}

WTextRxSesDuration::WTextRxSesDuration(Wt::WContainerWidget* parent)
    : WLookupText(ask<&Db::getSessionDurationFromRxIndex>, parent) {}

WTextTxSesDuration::WTextTxSesDuration(Wt::WContainerWidget* parent)
    : WLookupText(ask<&Db::getSessionDurationFromTxIndex>, parent) {}

WTextRxLoginDuration::WTextRxLoginDuration(Wt::WContainerWidget* parent)
    : WLookupText(ask<&Db::getLoginDurationFromRxIndex>, parent) {}

WTextRxKeyboardLayout::WTextRxKeyboardLayout(Wt::WContainerWidget* parent)
    : WLookupText(askKeyboardLayout, parent) {}

WTextRxSwxName::WTextRxSwxName(Wt::WContainerWidget* parent)
    : WLookupText(ask<&Db::getSwxNameFromRxIndex>, parent) {}

WTextTxSwxName::WTextTxSwxName(Wt::WContainerWidget* parent)
    : WLookupText(ask<&Db::getSwxNameFromTxIndex>, parent) {}

WTextRxSwxPort::WTextRxSwxPort(Wt::WContainerWidget* parent)
    : WLookupText(askPort<&Db::getSwxIndexAndPortIndexFromRxIndex>, parent) {}

WTextTxSwxPort::WTextTxSwxPort(Wt::WContainerWidget* parent)
    : WLookupText(askPort<&Db::getSwxIndexAndPortIndexFromTxIndex>, parent) {}

WTextRxUsrName::WTextRxUsrName(Wt::WContainerWidget* parent)
    : WLookupText(ask<&Db::getLoggedInUsernameFromRxIndex>, parent) {}

WTextTxUsrName::WTextTxUsrName(Wt::WContainerWidget* parent)
    : WLookupText(ask<&Db::getConnectedUsernameFromTxIndex>, parent) {}
