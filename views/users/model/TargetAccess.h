#pragma once

#include "platform/client/ZeqTypes.h"
#include "widgets/TargetItem.h"

#include <string>
#include <vector>

/// Which Transmitters the selected users may reach: what their records hold, merged over the selection. Free of
/// widgets. Sets are ascending vectors of Transmitter indexes: ten thousand targets of two hundred users are compared
/// and copied as blocks.
class TargetAccess {
public:
    using Indexes = std::vector<unsigned>;
    using TargetItem = ::TargetItem;
    using Items = std::vector<TargetItem>;

    enum EnableAll {
        ENABLE_ALL_YES = 0,  // every selected user has all-target access
        ENABLE_ALL_NO = 1,   // no selected user has it
        ENABLE_ALL_MIXED = 2 // also of a new object
    };

    /// One selected user.
    struct Targets {
        unsigned userIndex = 0;
        bool enableAll = false;
        Indexes targets;   // the user's own list, as a set
        Indexes favorites; // in the user's order
    };

    /// Null if the user is not among those that were read.
    const Targets* getTargetsForUser(unsigned userIndex) const;
    EnableAll getEnableAll() const { return enableAll; }

protected:
    /// Selected users in the order of the selection, the Transmitters, and the three subsets: two requests, whatever
    /// their number. `favorites`: these too. 1 after a failure, which is logged; no user is left then, so that nobody's
    /// list is overwritten with what could not be read.
    unsigned read(const Indexes& selection, bool favorites);
    void clearTargets();

    /// Items of the Transmitters that exist, in the order of the indexes.
    void append(Items& items, const Indexes& indexes, bool conflict) const;

    std::vector<Targets> targetsByUser;
    Items targetAllSet;
    Indexes targetNoAccessSubset;  // on no selected user's list
    Indexes targetConflictSet;     // some but not all may reach them
    Indexes targetAllAccessSubset; // every selected user may reach them
    EnableAll enableAll = ENABLE_ALL_MIXED;

private:
    unsigned readUsers(const Indexes& selection, bool favorites);
    unsigned readTransmitters();
    void merge();
};

// Of ascending vectors.
std::vector<unsigned> unionOf(const std::vector<unsigned>& a, const std::vector<unsigned>& b);
std::vector<unsigned> without(const std::vector<unsigned>& a, const std::vector<unsigned>& b);
std::vector<unsigned> commonOf(const std::vector<unsigned>& a, const std::vector<unsigned>& b);
/// Ascending, each value once.
std::vector<unsigned> asSet(std::vector<unsigned> values);
std::vector<unsigned> indexesOf(const std::vector<TargetItem>& items);

/// Puts `indexes` as the list `key` ("target", "favorite") into a request, and sends it. 0 or 1.
unsigned sendTargetList(json_t* request, const char* key, const std::vector<unsigned>& indexes,
                        std::vector<std::string>& errors);
