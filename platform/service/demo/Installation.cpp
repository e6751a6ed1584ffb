#include "platform/service/demo/Installation.h"

#include "platform/service/catalogue/Catalogue.h"
#include "platform/service/secret/PasswordHash.h"

namespace zeqd {

namespace {

constexpr const char* kFiles[] = {"system.json", "switches.json", "receivers.json", "transmitters.json",
                                  "users.json",  "monitors.json", "sessions.json",  "events.json"};
constexpr std::string_view kAdministrator = "admin";

std::string derivedEid(std::uint32_t number) {
    char text[16];
    std::snprintf(text, sizeof text, "00A7%02X-%06X", number >> 24, number & 0xFFFFFF);
    return text;
}

} // namespace

std::vector<RecordPtr> factoryInstallation() {
    Record swx(Res::Swx, 1);
    swx.setText("eid", derivedEid(0x10001))
        .setText("serialNumber", "SW1000001")
        .setText("partNumber", "SWX-36-10G");
    swx.setText("firmwareVersion", "4.2.0").choose("status", "ready").choose("mode", "master");
    swx.choose("cascadeRole", "controller");
    Record admin(Res::User, 1);
    admin.setText("name", std::string(kAdministrator))
        .choose("role", "admin")
        .choose("allTargetAccess", "enabled");
    Record globals(Res::SystemGlobals, 0);
    globals.setText("masterSwitchEid", swx.text("eid"));
    std::vector<RecordPtr> records;
    for (Record* record : {&swx, &admin, &globals})
        records.push_back(std::make_shared<Record>(std::move(*record)));
    return records;
}

std::vector<RecordPtr> makeInstallation(const InstallationPlan& plan) {
    if (plan.kind == InstallationPlan::Kind::Empty) return factoryInstallation();
    std::vector<RecordPtr> records;
    for (const char* file : kFiles)
        for (RecordPtr& record : readDataFile(plan.dataDir + "/" + file, plan.now)) records.push_back(record);
    for (RecordPtr& record : records) {
        if (record->id() != Res::User || record->text("name") != kAdministrator) continue;
        Record admin = *record;
        admin.setText("password", hashPassword(plan.adminPassword))
            .choose("passwordIsInitialized", "is_true");
        record = std::make_shared<Record>(std::move(admin));
    }
    growInstallation(records, plan.devices);
    growAccounts(records, std::min(plan.users, resource(Res::User).capacity));
    return records;
}

} // namespace zeqd
