#pragma once

#include <boost/asio/ip/address.hpp>

#include <array>
#include <cstddef>
#include <map>
#include <mutex>

namespace Wt::Impl {

/// Counts what each peer address holds, against a limit for one address and one for all. IPv6 peers are
/// counted by their /64 network, since one machine owns all of it. Thread-safe.
class AddressCounter {
public:
    AddressCounter(std::size_t limitOfAll, std::size_t limitOfOne)
        : mLimitOfAll(limitOfAll), mLimitOfOne(limitOfOne) {}

    bool enter(const boost::asio::ip::address& address);
    void leave(const boost::asio::ip::address& address);
    std::size_t count() const;

private:
    using Key = std::array<unsigned char, 8>;
    static Key keyOf(const boost::asio::ip::address& address);

    const std::size_t mLimitOfAll;
    const std::size_t mLimitOfOne;
    mutable std::mutex mMutex;
    std::map<Key, std::size_t> mCounts;
    std::size_t mAll = 0;
};

} // namespace Wt::Impl
