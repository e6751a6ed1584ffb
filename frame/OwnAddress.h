#pragma once

#include <array>
#include <string>

/// Addresses of the Switch that one is logged in to. Made before a save that may change them, it then says where the interface
/// is to be found from now on: whoever misses that has lost the Switch.
///
///     const OwnAddress before;
///     ... save ...
///     before.tellIfMoved();
class OwnAddress {
public:
    OwnAddress();

    void tellIfMoved() const;

private:
    struct Family {
        std::string method; // "static", or where the address comes from
        std::string address;
        bool operator==(const Family&) const = default;
    };
    using Families = std::array<Family, 2>; // IPv4, IPv6
    static Families read();
    static std::string linkTo(const Family& family);

    Families mBefore;
};
