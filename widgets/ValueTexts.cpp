#include "widgets/ValueTexts.h"

#include "db/Convert.h"
#include "db/StringLookup.h"
#include "widgets/Selectors.h"

namespace {

std::string translated(const char* key) {
    return Wt::WString::tr(key).toUTF8();
}

// The label of a choice table; `otherwise` is the label key of every other string.
std::string labelOf(WComboBoxPlus::Choices choices, const std::string& dbValue, const char* otherwise) {
    for (const WComboBoxPlus::Triplet& choice : choices)
        if (dbValue == choice.dbValue) return translated(choice.labelKey);
    return translated(otherwise);
}

std::string cascadeMode(const std::string& dbValue) {
    return labelOf(kCascadeModeChoices, dbValue, "[RSnnn]Unknown");
}

std::string cascadeRole(const std::string& dbValue) {
    return labelOf(kCascadeRoleChoices, dbValue, "swx.deviceDetails.cascadeRole.backup");
}

std::string managerServer(const std::string& dbValue) {
    return Wt::WString::tr("manager.designation." + dbValue).toUTF8();
}

constexpr StringLookup::Pair kNtpStates[] = {
    {"unknown", "[RSnnn]Initializing"},
    {"inactive", "[RSnnn]Inactive"},
    {"bad_configuration", "[RSnnn]Incorrect configuration"},
    {"pending", "[RSnnn]Synchronization pending"},
    {"network_unreachable", "[RSnnn]Server unreachable"},
    {"server_unresponsive", "[RSnnn]Server unresponsive"},
    {"success", "[RSnnn]Successful"},
};

std::string ntpStatus(const std::string& dbValue) {
    const char* key = StringLookup(kNtpStates).keyToValue(dbValue.c_str());
    return translated(key ? key : "[RSnnn]Unknown");
}

} // namespace

WValueText::WValueText(Words words, const char* resource, const char* key, bool indexed,
                       Wt::WContainerWidget* parent)
    : Wt::WText(Wt::WString(), Wt::PlainText, parent), ZeqField(resource, key, indexed), mWords(words) {}

void WValueText::showValue(const std::string& value) {
    setText(Wt::WString::fromUTF8(mWords(value)));
}

void WValueText::showNothing() {
    setText(Wt::WString());
}

WTextCascadeMode::WTextCascadeMode(const char* resource, const char* key, bool indexed,
                                   Wt::WContainerWidget* parent)
    : WValueText(cascadeMode, resource, key, indexed, parent) {}

WTextCascadeRole::WTextCascadeRole(const char* resource, const char* key, bool indexed,
                                   Wt::WContainerWidget* parent)
    : WValueText(cascadeRole, resource, key, indexed, parent) {}

WTextManagerServer::WTextManagerServer(const char* resource, const char* key, bool indexed,
                                       Wt::WContainerWidget* parent)
    : WValueText(managerServer, resource, key, indexed, parent) {}

WNtpStatus::WNtpStatus(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent)
    : WValueText(ntpStatus, resource, key, indexed, parent) {}

WVideoSyncPolarity::WVideoSyncPolarity(const char* resource, const char* key, bool indexed,
                                       Wt::WContainerWidget* parent)
    : WValueText(Convert_syncPolarityDbStringToUiString, resource, key, indexed, parent) {}
