#ifndef TESTS_FUZZ_REPLAY_H
#define TESTS_FUZZ_REPLAY_H

#include <cstddef>
#include <vector>

struct FuzzTarget {
    const char* name;
    int (*run)(const unsigned char* data, std::size_t size);
};

/// Every *_fuzz.cpp of this folder; made by CMake.
const std::vector<FuzzTarget>& fuzzTargets();

#endif
