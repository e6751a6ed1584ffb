// Reading a settings table: each resource and group of records with one request.

#include "db/HeldRecords.h"
#include "widgets/WLookupText.h"
#include "widgets/WSettingsTable.h"

#include <algorithm>

void WSettingsTable::readFromDatabase(const Indexes& indexes, bool force) {
    HeldRecords own;
    const HeldRecords::Use use(own); // of the ones in use, if there are any
    if (indexes != mShown) force = true;
    if (force) clearMarks();
    mShown = indexes;
    for (const Share& share : shares()) readShare(share, recordsOf(share, indexes), force);
    Errors dropped;
    for (const Field& field : mFields) {
        if (field.made.lookup)
            field.made.lookup->readFromDatabase(recordsOf(field.row->group, indexes), dropped);
        if (field.made.refresh) field.made.refresh(*field.made.widget, indexes);
    }
    lock(indexes);
    followChoices(true);
}

WSettingsTable::Indexes WSettingsTable::recordsOf(unsigned /*group*/, const Indexes& chosen) {
    return chosen;
}

WSettingsTable::Indexes WSettingsTable::recordsOf(const Share& share, const Indexes& chosen) {
    return share.singleton ? Indexes{0} : recordsOf(share.group, chosen);
}

bool WSettingsTable::isRead(const Field& field) const {
    return field.made.bound && !field.row->byOwner && field.made.bound->key()[0] != '\0';
}

std::vector<WSettingsTable::Share> WSettingsTable::shares() const {
    std::vector<Share> all;
    for (const Field& field : mFields)
        if (isRead(field) && std::find(all.begin(), all.end(), shareOf(field)) == all.end())
            all.push_back(shareOf(field));
    return all;
}

const json_t* WSettingsTable::fetchShare(const Share& share, const Indexes& records) const {
    if (records.empty()) return nullptr;
    HeldRecords::Keys keys;
    for (const Field& field : mFields)
        if (isRead(field) && shareOf(field) == share)
            keys.push_back(field.place.path.empty() ? field.made.bound->key() : field.place.path.front());
    HeldRecords& held = *HeldRecords::inUse();
    const char* resource = share.resource.c_str();
    Errors dropped;
    return records.size() == 1 && HeldRecords::holdsWhole(resource)
               ? held.row(resource, records.front(), keys.front().c_str(), dropped)
               : held.fetch(resource, records, keys);
}

void WSettingsTable::readShare(const Share& share, const Indexes& records, bool force) {
    const json_t* const answer = fetchShare(share, records);
    Errors dropped;
    for (Field& field : mFields) {
        if (!isRead(field) || shareOf(field) != share) continue;
        if (answer) field.stored = storedOf(field, answer);
        if (field.place.path.empty()) {
            field.made.bound->readFromDatabase(records, dropped, force);
        } else if (const ZeqPtr place = answer ? field.place.within(answer) : ZeqPtr()) {
            field.made.bound->getZeqParam(place.get(), records, force);
        } else if (!records.empty()) {
            return nestedReadFailed();
        } else if (share.group != 0) {
            field.made.bound->getZeqParam(nullptr, records, force);
        }
    }
}
