#pragma once

#include "server/Site.h"

namespace Wt::Impl {

/// Whether a page that has been loaded anew may find its session again.
inline bool mayAttach(const Site& site, const PageInput& hello) {
    return hello.page == 1 || !site.config.reloadIsNewSession;
}

/// The page was left or closed: the end of its session, unless it may be loaded anew.
inline void pageWasLeft(const Site& site, Session& session, std::uint64_t page) {
    if (site.config.reloadIsNewSession)
        session.end(EndReason::PageClosed);
    else
        session.channel().leave(page);
}

} // namespace Wt::Impl
