#include "server/AddressCounter.h"

#include <algorithm>

namespace Wt::Impl {

bool AddressCounter::enter(const boost::asio::ip::address& address) {
    const std::lock_guard lock(mMutex);
    if (mAll >= mLimitOfAll) return false;
    std::size_t& count = mCounts[keyOf(address)];
    if (count >= mLimitOfOne) return false;
    ++count;
    ++mAll;
    return true;
}

void AddressCounter::leave(const boost::asio::ip::address& address) {
    const std::lock_guard lock(mMutex);
    const auto found = mCounts.find(keyOf(address));
    if (--found->second == 0) mCounts.erase(found);
    --mAll;
}

std::size_t AddressCounter::count() const {
    const std::lock_guard lock(mMutex);
    return mAll;
}

AddressCounter::Key AddressCounter::keyOf(const boost::asio::ip::address& address) {
    Key key{};
    if (address.is_v6() && !address.to_v6().is_v4_mapped()) {
        const auto bytes = address.to_v6().to_bytes();
        std::copy_n(bytes.begin(), key.size(), key.begin());
    } else {
        // ::/64 is no network of anybody's, so IPv4 fits beside.
        const auto v4 = address.is_v4()
                            ? address.to_v4()
                            : boost::asio::ip::make_address_v4(boost::asio::ip::v4_mapped, address.to_v6());
        const auto bytes = v4.to_bytes();
        std::copy(bytes.begin(), bytes.end(), key.begin() + 4);
    }
    return key;
}

} // namespace Wt::Impl
