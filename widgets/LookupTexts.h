#pragma once

#include "widgets/WLookupText.h"

// What a device is and does at present, each by one lookup of Db. The classes are their lookup and nothing
// else.

/// Of the first record.
class WTextRxStatus : public WLookupText {
public:
    explicit WTextRxStatus(Wt::WContainerWidget* parent = nullptr);
};

class WTextTxStatus : public WLookupText {
public:
    explicit WTextTxStatus(Wt::WContainerWidget* parent = nullptr);
};

class WTextSwxStatus : public WLookupText {
public:
    explicit WTextSwxStatus(Wt::WContainerWidget* parent = nullptr);
};

class WTextRxSesMode : public WLookupText {
public:
    explicit WTextRxSesMode(Wt::WContainerWidget* parent = nullptr);
};

class WTextTxSesMode : public WLookupText {
public:
    explicit WTextTxSesMode(Wt::WContainerWidget* parent = nullptr);
};

class WTextRxSesDuration : public WLookupText {
public:
    explicit WTextRxSesDuration(Wt::WContainerWidget* parent = nullptr);
};

class WTextTxSesDuration : public WLookupText {
public:
    explicit WTextTxSesDuration(Wt::WContainerWidget* parent = nullptr);
};

class WTextRxLoginDuration : public WLookupText {
public:
    explicit WTextRxLoginDuration(Wt::WContainerWidget* parent = nullptr);
};

class WTextRxKeyboardLayout : public WLookupText {
public:
    explicit WTextRxKeyboardLayout(Wt::WContainerWidget* parent = nullptr);
};

/// Name of the Switch that the device is plugged into.
class WTextRxSwxName : public WLookupText {
public:
    explicit WTextRxSwxName(Wt::WContainerWidget* parent = nullptr);
};

class WTextTxSwxName : public WLookupText {
public:
    explicit WTextTxSwxName(Wt::WContainerWidget* parent = nullptr);
};

/// Port number there; the Switch is not compared.
class WTextRxSwxPort : public WLookupText {
public:
    explicit WTextRxSwxPort(Wt::WContainerWidget* parent = nullptr);
};

class WTextTxSwxPort : public WLookupText {
public:
    explicit WTextTxSwxPort(Wt::WContainerWidget* parent = nullptr);
};

class WTextRxUsrName : public WLookupText {
public:
    explicit WTextRxUsrName(Wt::WContainerWidget* parent = nullptr);
};

class WTextTxUsrName : public WLookupText {
public:
    explicit WTextTxUsrName(Wt::WContainerWidget* parent = nullptr);
};
