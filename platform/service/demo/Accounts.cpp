// Many accounts, for trying and for measuring.
#include "platform/service/catalogue/UserRows.h"
#include "platform/service/demo/Installation.h"

#include <algorithm>
#include <cctype>
#include <set>

namespace zeqd {

namespace {

constexpr std::string_view kGiven[] = {"Amara", "Bengt",  "Carla", "Dilan", "Edda",  "Farid", "Greta",
                                       "Hiro",  "Irena",  "Jonas", "Kalle", "Lucia", "Mirko", "Noor",
                                       "Oskar", "Pernil", "Rafal", "Sofia", "Timur", "Vera"};
constexpr std::string_view kFamily[] = {"Abel",  "Brandt", "Castel", "Dorn",  "Eklund", "Fiala",  "Goran",
                                        "Haas",  "Ilic",   "Jansen", "Kovac", "Lind",   "Moreau", "Novak",
                                        "Olsen", "Pavic",  "Rossi",  "Sato",  "Thorne"};

/// What people of one kind of work may do. Of twenty, so many are of it.
struct Work {
    std::uint32_t ofTwenty;
    std::string_view role, mode, usb;
    std::uint32_t targets; ///< 0 = all
    std::uint32_t favorites;
};
constexpr Work kWork[] = {
    {1, "admin", "share_or_private_mode", "all_devices", 0, 0},
    {12, "user", "share_or_private_mode", "all_except_mass_storage", 12, 4}, // operators
    {4, "user", "private_mode", "all_devices", 5, 2},                        // engineers
    {3, "user", "share_mode", "keyboard_mouse_only", 2, 0},                  // guests
};

const Work& workOf(std::uint32_t number) {
    std::uint32_t place = number % 20;
    for (const Work& work : kWork) {
        if (place < work.ofTwenty) return work;
        place -= work.ofTwenty;
    }
    return kWork[0];
}

/// So many Transmitters, from one that the number chooses on.
EntriesPtr targetsOf(const std::vector<std::uint32_t>& transmitters, std::uint32_t number,
                     std::uint32_t count) {
    auto entries = std::make_shared<Entries>();
    count = std::min(count, static_cast<std::uint32_t>(transmitters.size()));
    for (std::uint32_t i = 0; i < count; ++i)
        entries->push_back(
            {Value(std::int64_t{transmitters[(std::size_t{number} * 3 + i) % transmitters.size()]})});
    return entries;
}
static_assert(std::size(rows::kTargetEntry) == 1);

Record makeUser(std::uint32_t index, std::uint32_t number, const std::string& name,
                const std::vector<std::uint32_t>& transmitters) {
    const Work& work = workOf(number);
    Record user(Res::User, index);
    user.setText("name", name);
    user.setText("fullName", std::string(kGiven[number % std::size(kGiven)]) + " " +
                                 std::string(kFamily[number % std::size(kFamily)]));
    user.choose("role", work.role).choose("modeAllowed", work.mode).choose("usbMode", work.usb);
    user.choose("passwordIsInitialized", "is_false");
    if (work.targets == 0) user.choose("allTargetAccess", "enabled");
    user.at("target") = targetsOf(transmitters, number, work.targets);
    user.at("favorite") = targetsOf(transmitters, number, work.favorites);
    return user;
}

/// First letter and family name; with a number when somebody has it.
std::string nameOf(std::uint32_t number, const std::set<std::string>& taken) {
    std::string name(kGiven[number % std::size(kGiven)].substr(0, 1));
    name += kFamily[number % std::size(kFamily)];
    std::ranges::transform(name, name.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (!taken.contains(name)) return name;
    for (std::uint32_t again = 2;; ++again)
        if (std::string other = name + std::to_string(again); !taken.contains(other)) return other;
}

} // namespace

void growAccounts(std::vector<RecordPtr>& records, std::uint32_t users) {
    std::set<std::string> taken;
    std::vector<std::uint32_t> transmitters;
    std::uint32_t highest = 0;
    for (const RecordPtr& record : records) {
        if (record->id() == Res::Tx) transmitters.push_back(record->index());
        if (record->id() != Res::User) continue;
        taken.insert(record->text("name"));
        highest = std::max(highest, record->index());
    }
    for (std::uint32_t number = 0; taken.size() < users; ++number) {
        const std::string name = nameOf(number, taken);
        taken.insert(name);
        records.push_back(std::make_shared<Record>(makeUser(++highest, number, name, transmitters)));
    }
}

} // namespace zeqd
