#include "platform/service/OpenDatabase.h"

#include "platform/service/domain/Alerts.h"
#include "platform/service/domain/Devices.h"
#include "platform/service/secret/PasswordHash.h"
#include "platform/service/store/Transaction.h"

#include <filesystem>

namespace zeqd {

namespace {

bool administratorLeft(const View& view) {
    return view.findIf(Res::User, [](const Record& user) {
        return user.is("role", "admin") && user.enabled("accountEnable");
    }) != nullptr;
}

/// What is never missing in a database of this service.
bool complete(const View& view) {
    return view.find(Res::Swx, kThisSwitch) && administratorLeft(view);
}

/// An account whose password nobody knows. It is given one on the Switch itself, and the login page says so.
void addClosedAdministrator(Transaction& tx) {
    std::string name = "admin";
    for (int number = 2; tx.findText(Res::User, "name", name); ++number)
        name = "admin" + std::to_string(number);
    Record admin(Res::User, tx.nextIndex(Res::User));
    admin.setText("name", name).setText("password", decoyHash());
    admin.choose("role", "admin")
        .choose("passwordIsInitialized", "is_true")
        .choose("allTargetAccess", "enabled");
    Record globals = tx.singleton(Res::SystemGlobals);
    globals.choose("mirlBannerEnable", "enabled");
    globals.setText(
        "mirlBannerText",
        "The database of this Switch was damaged and its accounts are lost. Nobody can log in until a "
        "password is set on the Switch itself:\nzeqctl set user " +
            std::to_string(admin.index()) + " password=NEW\n(account " + name + ")");
    tx.put(std::move(globals));
    tx.put(std::move(admin));
}

std::string plural(std::size_t count, const std::string& what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

void rescue(const std::string& path, Store& store, const InstallationPlan& plan,
            const std::function<void(const std::string&)>& log) {
    store = Store();
    const Salvaged salvaged = salvage(path, store);
    Transaction tx(&store);
    for (const RecordPtr& record : factoryInstallation())
        if (record->id() == Res::Swx && !store.find(Res::Swx, kThisSwitch)) tx.put(*record);
    const bool closed = !administratorLeft(store);
    if (closed) addClosedAdministrator(tx);
    std::string told = "The database was damaged and has been set aside as " + path + ".damaged-*. " +
                       plural(salvaged.found.size(), "record") + " could be read";
    if (salvaged.lost) told += ", " + plural(salvaged.lost, "record") + " could not";
    if (salvaged.cut) told += "; there may have been more";
    told += closed ? ". No account is left that can log in; set a password on the Switch with zeqctl." : ".";
    log("error: " + told);
    addAlert(tx, plan.now, "error", thisSwitchEid(tx), told);
    store.apply(tx);
    SqliteDisk::create(path, store.content());
}

} // namespace

std::unique_ptr<SqliteDisk> openDatabase(const std::string& path, Store& store, const InstallationPlan& plan,
                                         const std::function<void(const std::string&)>& log) {
    if (!std::filesystem::exists(path)) {
        Store fresh;
        for (const RecordPtr& record : makeInstallation(plan)) fresh.load(record);
        SqliteDisk::create(path, fresh.content());
        log(std::string("made a new database, ") +
            (plan.kind == InstallationPlan::Kind::Empty ? "factory new" : "the demo installation"));
    }
    try {
        auto disk = std::make_unique<SqliteDisk>(path);
        disk->load(store);
        if (!complete(store)) throw DatabaseDamaged("this Switch or every administrator is missing");
        return disk;
    } catch (const DatabaseDamaged& error) {
        log(std::string("error: the database is damaged: ") + error.what());
    }
    rescue(path, store, plan, log);
    store = Store();
    auto disk = std::make_unique<SqliteDisk>(path);
    disk->load(store);
    return disk;
}

} // namespace zeqd
