#include "text/DescribeLink.h"

#include "text/XhtmlFilter.h"
#include "web/ElementSpec.h"

#include <Wt/WLink.h>

namespace Wt::Impl {

void describeLink(ElementSpec& spec, const WLink& link, AnchorTarget target, bool enabled) {
    const std::string url = link.url();
    if (!enabled || !isHarmlessUrl(url)) {
        spec.attribute("aria-disabled", "true");
        return;
    }
    spec.attribute("href", url);
    if (target == TargetNewWindow) {
        spec.attribute("target", "_blank");
        spec.attribute("rel", "noopener noreferrer");
    } else if (target == TargetDownload) {
        spec.attribute("download", "");
    }
}

} // namespace Wt::Impl
