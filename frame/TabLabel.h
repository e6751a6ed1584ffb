#pragma once

namespace Wt {
class WMenuItem;
}

/// Shows or takes away the "*" of unsaved changes behind a tab's label; it never stands there twice. A null
/// item is allowed: pages without tabs have none.
void MirlUtil_indicateChange(Wt::WMenuItem* item, bool changed);
