#pragma once

#include "frame/ActionResults.h"

/// Shows the row, whose box has no buttons, and makes a request that takes this Switch down: the box then
/// stands until the connection goes. A refusal closes it and is told; without an answer it stays, for the
/// Switch may be going down already.
void standUntilGone(const BoxRow& row, const Wt::WString& text, const ActionResults::Request& request);

/// The same under the title "Rebooting", for a reboot of this Switch.
void rebootThisSwx(const Wt::WString& text);
