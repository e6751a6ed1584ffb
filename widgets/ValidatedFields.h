#pragma once

#include "widgets/AddressPatterns.h"
#include "widgets/ValidatedField.h"

/// Identifier of a device: six letters or digits, a dash, six more.
class WEid : public PatternField {
public:
    WEid(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent = nullptr)
        : PatternField(resource, key, indexed, parent, kEidPattern, 13) {}
};

class WIpV4Addr : public PatternField {
public:
    WIpV4Addr(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent = nullptr)
        : PatternField(resource, key, indexed, parent, kIpV4Pattern, 57) {}
};

class WIpV6Addr : public PatternField {
public:
    WIpV6Addr(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent = nullptr)
        : PatternField(resource, key, indexed, parent, kIpV6Pattern, 57) {}
};

/// An IPv4 or IPv6 address.
class WIpAddr : public PatternField {
public:
    WIpAddr(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent = nullptr)
        : PatternField(resource, key, indexed, parent, kIpPattern, 57) {}
};

/// An address or a host name.
class WHostAddr : public PatternField {
public:
    WHostAddr(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent = nullptr)
        : PatternField(resource, key, indexed, parent, kHostPattern, 255) {}
};

class WMacAddr : public PatternField {
public:
    WMacAddr(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent = nullptr)
        : PatternField(resource, key, indexed, parent, kMacPattern, 23) {}
};

/// A USB HID key code.
class WKeyCode : public RangeField {
public:
    WKeyCode(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent = nullptr)
        : RangeField(resource, key, indexed, parent, 0, 255) {}
};

/// One step of a mouse movement.
class WMouseDelta : public RangeField {
public:
    WMouseDelta(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent = nullptr)
        : RangeField(resource, key, indexed, parent, 0, 127) {}
};
