#pragma once

#include <Wt/WGlobal.h>

#include <string>

namespace Wt {

class WResource;

/// Where an anchor, a button or an image points to: a URL, a resource (not owned) or an internal path.
class WLink {
public:
    enum Type { Url, Resource, InternalPath };

    WLink() = default;
    WLink(const char* url) : mValue(url) {}
    WLink(const std::string& url) : mValue(url) {}
    WLink(Type type, const std::string& value) : mType(type), mValue(value) {}
    WLink(WResource* resource) : mType(Resource), mResource(resource) {}

    void setUrl(const std::string& url);
    void setResource(WResource* resource);
    void setInternalPath(const std::string& path);

    Type type() const { return mType; }
    bool isNull() const { return !mResource && mValue.empty(); }
    /// Of a resource: its URL in this session.
    std::string url() const;
    WResource* resource() const { return mResource; }
    std::string internalPath() const { return mType == InternalPath ? mValue : std::string(); }

    bool operator==(const WLink& other) const;
    bool operator!=(const WLink& other) const { return !(*this == other); }

private:
    Type mType = Url;
    std::string mValue;
    WResource* mResource = nullptr;
};

} // namespace Wt
