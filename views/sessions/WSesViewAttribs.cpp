#include "views/sessions/WSesViewAttribs.h"

#include "db/Convert.h"
#include "db/OfRecord.h"
#include "views/sessions/SessionClock.h"
#include "widgets/LookupTexts.h"

namespace {

using Lookup = unsigned (Db::*)(unsigned, std::string&, Db::Errors&);

/// What a lookup by the session's Receiver ("rxIndex") or Transmitter ("txIndex") gives.
unsigned ofDevice(Lookup lookup, const char* key, unsigned session, std::string& text, Db::Errors& errors) {
    unsigned device = 0;
    if (readNumberOf("connection", session, key, device, errors) != 0) return 1;
    return (Db::db.*lookup)(device, text, errors);
}

template <Lookup kLookup>
unsigned ofReceiver(unsigned session, std::string& text, Db::Errors& errors) {
    return ofDevice(kLookup, "rxIndex", session, text, errors);
}

template <Lookup kLookup>
unsigned ofTransmitter(unsigned session, std::string& text, Db::Errors& errors) {
    return ofDevice(kLookup, "txIndex", session, text, errors);
}

template <Lookup kLookup>
unsigned ofUser(unsigned session, std::string& text, Db::Errors& errors) {
    unsigned rx = 0, user = 0;
    if (readNumberOf("connection", session, "rxIndex", rx, errors) != 0 ||
        Db::db.getLoggedInUserIndexFromRxIndex(rx, user, errors) != 0)
        return 1;
    return (Db::db.*kLookup)(user, text, errors);
}

unsigned modeOf(unsigned session, std::string& text, Db::Errors& errors) {
    std::string mode;
    if (readTextOf("connection", session, "mode", mode, errors) != 0) return 1;
    text = Convert_accessModeDbStringToUiString(mode);
    return 0;
}

unsigned durationOf(unsigned session, std::string& text, Db::Errors& errors) {
    unsigned start = 0;
    if (readNumberOf("connection", session, "sessionStartTime", start, errors) != 0) return 1;
    text = SessionClock::duration(start);
    return 0;
}

constexpr SettingsTableSpec kSpec = {.resource = "connection",
                                     .headings = {"[RSnnn]Attribute", "[RSnnn]Value"}};

template <WLookupText::Lookup kLookup>
constexpr SettingsRow shown(const char* label) {
    return {.label = label, .make = makeSettingsField<LookupTextOf<kLookup>>, .differs = "---"};
}

constexpr SettingsRow kRows[] = {
    shown<ofReceiver<&Db::getSwxNameOrEidFromRxIndex>>("[RSnnn]Receiver Switch"),
    shown<ofReceiver<&Db::getRxNameOrEidFromRxIndex>>("[RSnnn]Receiver"),
    shown<ofTransmitter<&Db::getSwxNameOrEidFromTxIndex>>("[RSnnn]Transmitter Switch"),
    shown<ofTransmitter<&Db::getTxNameOrEidFromTxIndex>>("[RSnnn]Transmitter"),
    shown<ofUser<&Db::getUsernameFromUserIndex>>("[RSnnn]Username"),
    shown<ofUser<&Db::getUserFullNameFromUserIndex>>("[RSnnn]Full Name"),
    shown<ofUser<&Db::getUserRoleFromUserIndex>>("[RSnnn]Role"),
    shown<modeOf>("[RSnnn]Session Mode"),
    shown<durationOf>("[RSnnn]Session Duration"),
};

} // namespace

WSesViewAttribs::WSesViewAttribs(Wt::WContainerWidget* parent) : WSettingsTable(kSpec, kRows, parent) {}
