#include <Wt/WLink.h>

#include <Wt/WResource.h>

namespace Wt {

void WLink::setUrl(const std::string& url) {
    *this = WLink(url);
}
void WLink::setResource(WResource* resource) {
    *this = WLink(resource);
}
void WLink::setInternalPath(const std::string& path) {
    *this = WLink(InternalPath, path);
}

std::string WLink::url() const {
    if (mType == Resource) return mResource ? mResource->url() : std::string();
    return mType == InternalPath ? "?_=" + mValue : mValue;
}

bool WLink::operator==(const WLink& other) const {
    return mType == other.mType && mValue == other.mValue && mResource == other.mResource;
}

} // namespace Wt
