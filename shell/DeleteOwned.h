#pragma once

#include <utility>

/// Deletes what the pointer owns, if anything, and clears it first:
/// handlers that run meanwhile find no dead object.
template <class T>
void deleteOwned(T*& owned) {
    delete std::exchange(owned, nullptr);
}
