#pragma once

#include <cstddef>
#include <iterator>

/// What a button between two lists does. The left list holds what is available, the right one what is chosen.
enum class Move { AddAll, Add, Remove, RemoveAll, Up, Down };

/// What the buttons depend on: rows that a list shows, and rows that are selected in it.
struct MoverState {
    bool usable = true; // false while something else decides about the lists
    int leftRows = 0;
    int leftSelected = 0;
    int rightRows = 0;
    int rightSelected = 0;
    int rightLimit = 0; // rows that the right list may hold; 0: any number
};

/// Facts about a state, as bits.
enum MoverFact : unsigned {
    kLeftRows = 1,
    kLeftSelected = 2,
    kRoomAtRight = 4,
    kRightRows = 8,
    kRightSelected = 16,
    kOneRightSelected = 32,
};

constexpr unsigned moverFacts(const MoverState& state) {
    if (!state.usable) return 0;
    return (state.leftRows > 0 ? kLeftRows : 0u) | (state.leftSelected > 0 ? kLeftSelected : 0u) |
           (state.rightLimit == 0 || state.rightRows < state.rightLimit ? kRoomAtRight : 0u) |
           (state.rightRows > 0 ? kRightRows : 0u) | (state.rightSelected > 0 ? kRightSelected : 0u) |
           (state.rightSelected == 1 ? kOneRightSelected : 0u);
}

/// A button is enabled while all the facts hold that it needs.
struct MoverRule {
    Move move;
    unsigned needs;
};

inline constexpr MoverRule kMoverRules[] = {
    {Move::AddAll, kLeftRows | kRoomAtRight},
    {Move::Add, kLeftSelected | kRoomAtRight},
    {Move::Remove, kRightSelected},
    {Move::RemoveAll, kRightRows},
    {Move::Up, kOneRightSelected},
    {Move::Down, kOneRightSelected},
};

constexpr bool moverRulesCoverInOrder() {
    for (std::size_t i = 0; i < std::size(kMoverRules); ++i)
        if (kMoverRules[i].move != Move(i)) return false;
    return std::size(kMoverRules) == std::size_t(Move::Down) + 1;
}
static_assert(moverRulesCoverInOrder());

constexpr bool moveAllowed(Move move, const MoverState& state) {
    const unsigned needs = kMoverRules[std::size_t(move)].needs;
    return (moverFacts(state) & needs) == needs;
}
