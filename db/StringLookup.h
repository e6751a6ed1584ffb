#pragma once

#include <cstddef>

/// Pairs of texts searched from either side; the first match wins. The table is not owned.
class StringLookup {
public:
    struct Pair {
        const char* key;
        const char* value;
    };

    StringLookup(const Pair* table, int count) : mTable(table), mCount(count) {}
    template <std::size_t N>
    explicit StringLookup(const Pair (&table)[N]) : StringLookup(table, static_cast<int>(N)) {}
    virtual ~StringLookup() = default;

    /// The other half of the pair, 0 when the table lacks the text.
    virtual const char* keyToValue(const char* key) const;
    virtual const char* valueToKey(const char* value) const;

private:
    const Pair* mTable;
    int mCount;
};
