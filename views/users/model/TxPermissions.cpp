#include "views/users/model/TxPermissions.h"

#include "db/Db.h"
#include "platform/client/ZeqReq.h"

unsigned TxPermissions::populate(const Indexes& selection) {
    clear();
    if (selection.empty()) return 0;
    if (read(selection, false) != 0) return 1;
    populateTargetItemSets();
    return 0;
}

void TxPermissions::clear() {
    clearTargets();
    availableTargetItems.clear();
    allowedTargetItems.clear();
}

void TxPermissions::populateTargetItemSets() {
    allTargetItems = targetAllSet;
    availableTargetItems.clear();
    allowedTargetItems.clear();
    if (enableAll == ENABLE_ALL_YES) return;
    append(availableTargetItems, targetNoAccessSubset, false);
    append(availableTargetItems, targetConflictSet, true);
    append(allowedTargetItems, targetAllAccessSubset, false);
    append(allowedTargetItems, targetConflictSet, true);
}

void TxPermissions::addToAllowed(const Indexes& indexes) {
    const Indexes moved = commonOf(asSet(indexes), indexesOf(targetAllSet));
    for (Targets& user : targetsByUser) user.targets = unionOf(user.targets, moved);
    targetNoAccessSubset = without(targetNoAccessSubset, moved);
    targetConflictSet = without(targetConflictSet, moved);
    targetAllAccessSubset = unionOf(targetAllAccessSubset, moved);
    populateTargetItemSets();
}

void TxPermissions::removeFromAllowed(const Indexes& indexes) {
    const Indexes moved = commonOf(asSet(indexes), indexesOf(targetAllSet));
    for (Targets& user : targetsByUser) user.targets = without(user.targets, moved);
    targetNoAccessSubset = unionOf(targetNoAccessSubset, moved);
    targetConflictSet = without(targetConflictSet, moved);
    targetAllAccessSubset = without(targetAllAccessSubset, moved);
    populateTargetItemSets();
}

void TxPermissions::allowAll() {
    targetAllAccessSubset = indexesOf(targetAllSet);
    for (Targets& user : targetsByUser) user.targets = targetAllAccessSubset;
    targetNoAccessSubset.clear();
    targetConflictSet.clear();
    populateTargetItemSets();
}

void TxPermissions::disallowAll() {
    for (Targets& user : targetsByUser) user.targets.clear();
    targetNoAccessSubset = indexesOf(targetAllSet);
    targetConflictSet.clear();
    targetAllAccessSubset.clear();
    populateTargetItemSets();
}

void TxPermissions::setEnableAll(EnableAll value) {
    if (value == enableAll) return;
    enableAll = value;
    if (value != ENABLE_ALL_YES) return;
    targetNoAccessSubset.clear();
    targetConflictSet.clear();
    targetAllAccessSubset.clear();
    availableTargetItems.clear();
    allowedTargetItems.clear();
}

unsigned TxPermissions::writeToDatabase(std::vector<std::string>& errors) const {
    for (const Targets& user : targetsByUser) {
        const bool all = enableAll == ENABLE_ALL_YES;
        if (enableAll != ENABLE_ALL_MIXED &&
            Db::db.writeEnableDisable("user", user.userIndex, "allTargetAccess", all, errors) != 0)
            return 1;
        // The stored list stays: it counts again when the access to all is taken away.
        if (all) continue;
        if (sendTargetList(ZeqReq_userTargetListNewUpdateReq(user.userIndex), "target", user.targets,
                           errors) != 0)
            return 1;
    }
    return 0;
}
