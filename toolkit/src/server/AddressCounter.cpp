#include "server/AddressCounter.h"

#include <algorithm>

namespace Wt::Impl {

bool AddressCounter::enter(const boost::asio::ip::address& address) {
    const std::lock_guard lock(mMutex);
    if (mAll >= mLimitOfAll) return false;
    Count& count = mCounts[keyOf(address)];
    if (count.all >= mLimitOfOne || count.anonymous >= mLimitOfAnonymous) return false;
    ++count.all;
    ++count.anonymous;
    ++mAll;
    return true;
}

void AddressCounter::recognise(const boost::asio::ip::address& address) {
    const std::lock_guard lock(mMutex);
    --mCounts[keyOf(address)].anonymous;
}

void AddressCounter::leave(const boost::asio::ip::address& address, bool ofUser) {
    const std::lock_guard lock(mMutex);
    const auto found = mCounts.find(keyOf(address));
    if (!ofUser) --found->second.anonymous;
    if (--found->second.all == 0) mCounts.erase(found);
    --mAll;
}

bool AddressCounter::isCrowded(const boost::asio::ip::address& address) const {
    const std::lock_guard lock(mMutex);
    const auto found = mCounts.find(keyOf(address));
    return found != mCounts.end() && found->second.anonymous > mLimitOfAnonymous / 2;
}

std::size_t AddressCounter::count() const {
    const std::lock_guard lock(mMutex);
    return mAll;
}

std::string AddressCounter::networkOf(const boost::asio::ip::address& address) {
    if (address.is_v4()) return address.to_string();
    const auto v6 = address.to_v6();
    if (v6.is_v4_mapped())
        return boost::asio::ip::make_address_v4(boost::asio::ip::v4_mapped, v6).to_string();
    auto bytes = v6.to_bytes();
    std::fill(bytes.begin() + 8, bytes.end(), 0);
    return boost::asio::ip::address_v6(bytes).to_string() + "/64";
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
