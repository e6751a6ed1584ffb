#pragma once

#include "db/Db.h"
#include "widgets/WLookupText.h"

// What a device is and does at present, each by one lookup of Db.
// The classes are their lookup and nothing else.

/// A lookup of Db that gives a text.
template <unsigned (Db::*kLookup)(unsigned, std::string&, Db::Errors&)>
unsigned lookupText(unsigned index, std::string& text, Db::Errors& errors) {
    return (Db::db.*kLookup)(index, text, errors);
}

/// A lookup of Db that gives Switch and port: the port number alone, nothing for a device on no port.
template <unsigned (Db::*kLookup)(unsigned, unsigned&, unsigned&, Db::Errors&)>
unsigned lookupPort(unsigned index, std::string& text, Db::Errors& errors) {
    unsigned swx = 0;
    unsigned port = 0;
    const unsigned result = (Db::db.*kLookup)(index, swx, port, errors);
    if (port != 0) text = std::to_string(port);
    return result;
}

unsigned lookupKeyboardLayout(unsigned index, std::string& text, Db::Errors& errors);

template <WLookupText::Lookup kLookup, WLookupText::Shows kShows = WLookupText::Shows::CommonText>
class LookupTextOf : public WLookupText {
public:
    explicit LookupTextOf(Wt::WContainerWidget* parent = nullptr) : WLookupText(kLookup, parent, kShows) {}
};

/// Of the first record.
class WTextRxStatus
    : public LookupTextOf<lookupText<&Db::getRxOverallStatus>, WLookupText::Shows::FirstRecord> {
public:
    using LookupTextOf::LookupTextOf;
};

class WTextTxStatus : public LookupTextOf<lookupText<&Db::getTxOverallStatus>> {
public:
    using LookupTextOf::LookupTextOf;
};

class WTextSwxStatus : public LookupTextOf<lookupText<&Db::getSwxOverallStatus>> {
public:
    using LookupTextOf::LookupTextOf;
};

class WTextRxSesMode : public LookupTextOf<lookupText<&Db::getSessionModeFromRxIndex>> {
public:
    using LookupTextOf::LookupTextOf;
};

class WTextTxSesMode : public LookupTextOf<lookupText<&Db::getSessionModeFromTxIndex>> {
public:
    using LookupTextOf::LookupTextOf;
};

class WTextRxSesDuration : public LookupTextOf<lookupText<&Db::getSessionDurationFromRxIndex>> {
public:
    using LookupTextOf::LookupTextOf;
};

class WTextTxSesDuration : public LookupTextOf<lookupText<&Db::getSessionDurationFromTxIndex>> {
public:
    using LookupTextOf::LookupTextOf;
};

class WTextRxLoginDuration : public LookupTextOf<lookupText<&Db::getLoginDurationFromRxIndex>> {
public:
    using LookupTextOf::LookupTextOf;
};

class WTextRxKeyboardLayout : public LookupTextOf<lookupKeyboardLayout> {
public:
    using LookupTextOf::LookupTextOf;
};

/// Name of the Switch that the device is plugged into.
class WTextRxSwxName : public LookupTextOf<lookupText<&Db::getSwxNameFromRxIndex>> {
public:
    using LookupTextOf::LookupTextOf;
};

class WTextTxSwxName : public LookupTextOf<lookupText<&Db::getSwxNameFromTxIndex>> {
public:
    using LookupTextOf::LookupTextOf;
};

/// Port number there; the Switch is not compared.
class WTextRxSwxPort : public LookupTextOf<lookupPort<&Db::getSwxIndexAndPortIndexFromRxIndex>> {
public:
    using LookupTextOf::LookupTextOf;
};

class WTextTxSwxPort : public LookupTextOf<lookupPort<&Db::getSwxIndexAndPortIndexFromTxIndex>> {
public:
    using LookupTextOf::LookupTextOf;
};

class WTextRxUsrName : public LookupTextOf<lookupText<&Db::getLoggedInUsernameFromRxIndex>> {
public:
    using LookupTextOf::LookupTextOf;
};

class WTextTxUsrName : public LookupTextOf<lookupText<&Db::getConnectedUsernameFromTxIndex>> {
public:
    using LookupTextOf::LookupTextOf;
};
