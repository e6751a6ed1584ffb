#pragma once

#include <boost/asio/ip/address.hpp>

#include <array>
#include <cstddef>
#include <map>
#include <mutex>
#include <string>

namespace Wt::Impl {

/// Counts the connections that each peer address holds, against limits for all, for one address, and for those of
/// one address whose browser has no user yet. IPv6 peers are counted by their /64 network, since one machine owns all
/// of it. Thread-safe.
class AddressCounter {
public:
    AddressCounter(std::size_t limitOfAll, std::size_t limitOfOne, std::size_t limitOfAnonymous)
        : mLimitOfAll(limitOfAll), mLimitOfOne(limitOfOne), mLimitOfAnonymous(limitOfAnonymous) {}

    /// One more, without a user at first. False: too many.
    bool enter(const boost::asio::ip::address& address);
    /// One of them turns out to be a user's.
    void recognise(const boost::asio::ip::address& address);
    void leave(const boost::asio::ip::address& address, bool ofUser);
    /// Whether more than half of the connections without a user are taken: none of them should be kept for nothing.
    bool isCrowded(const boost::asio::ip::address& address) const;
    std::size_t count() const;

    /// The text by which limits are counted: "192.0.2.1", "2001:db8::/64".
    static std::string networkOf(const boost::asio::ip::address& address);

private:
    using Key = std::array<unsigned char, 8>;
    static Key keyOf(const boost::asio::ip::address& address);

    const std::size_t mLimitOfAll;
    const std::size_t mLimitOfOne;
    const std::size_t mLimitOfAnonymous;
    mutable std::mutex mMutex;
    struct Count {
        std::size_t all = 0;
        std::size_t anonymous = 0;
    };
    std::map<Key, Count> mCounts;
    std::size_t mAll = 0;
};

} // namespace Wt::Impl
