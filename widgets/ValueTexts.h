#pragma once

#include "widgets/ZeqField.h"

#include <Wt/WText>

/// A field of the database in the user's words, read only. The classes below are their
/// words and nothing else.
class WValueText : public Wt::WText, public ZeqField<std::string> {
public:
    /// The word for a database string, UTF-8.
    using Words = std::string (*)(const std::string& dbValue);

    WValueText(Words words, const char* resource, const char* key, bool indexed,
               Wt::WContainerWidget* parent);

protected:
    void showValue(const std::string& value) override;
    void showNothing() override;

private:
    Words mWords;
};

/// "mode" of a Switch, in the words of WCascadeMode.
class WTextCascadeMode : public WValueText {
public:
    WTextCascadeMode(const char* resource, const char* key, bool indexed,
                     Wt::WContainerWidget* parent = nullptr);
};

/// "cascadeRole" of a Switch, in the words of WCascadeRole.
class WTextCascadeRole : public WValueText {
public:
    WTextCascadeRole(const char* resource, const char* key, bool indexed,
                     Wt::WContainerWidget* parent = nullptr);
};

/// "currentManager" or "preferredManager".
class WTextManagerServer : public WValueText {
public:
    WTextManagerServer(const char* resource, const char* key, bool indexed,
                       Wt::WContainerWidget* parent = nullptr);
};

class WNtpStatus : public WValueText {
public:
    WNtpStatus(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent = nullptr);
};

class WVideoSyncPolarity : public WValueText {
public:
    WVideoSyncPolarity(const char* resource, const char* key, bool indexed,
                       Wt::WContainerWidget* parent = nullptr);
};
