#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>

namespace Wt::Impl {

/// Bytes that have arrived and are not used yet. Starts small and grows up to a limit, so that an idle
/// connection costs little.
class InBuffer {
public:
    std::string_view view() const { return {mBytes.get() + mBegin, mEnd - mBegin}; }
    bool empty() const { return mBegin == mEnd; }

    void consume(std::size_t count) {
        mBegin += count;
        if (mBegin == mEnd) mBegin = mEnd = 0;
    }

    /// Room to read into, never empty unless `limit` bytes wait already.
    struct Room {
        char* data;
        std::size_t size;
    };
    Room prepare(std::size_t limit) {
        if (mBegin > 0) {
            std::memmove(mBytes.get(), mBytes.get() + mBegin, mEnd - mBegin);
            mEnd -= mBegin;
            mBegin = 0;
        }
        if (mEnd == mCapacity && mCapacity < limit) {
            const std::size_t capacity = std::min(limit, std::max<std::size_t>(mCapacity * 4, kFirst));
            std::unique_ptr<char[]> larger(new char[capacity]);
            if (mEnd > 0) std::memcpy(larger.get(), mBytes.get(), mEnd);
            mBytes = std::move(larger);
            mCapacity = capacity;
        }
        return {mBytes.get() + mEnd, mCapacity - mEnd};
    }
    void commit(std::size_t count) { mEnd += count; }

private:
    static constexpr std::size_t kFirst = 2048;

    std::unique_ptr<char[]> mBytes;
    std::size_t mCapacity = 0, mBegin = 0, mEnd = 0;
};

} // namespace Wt::Impl
