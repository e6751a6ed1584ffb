#pragma once

namespace Wt {
class WBoxLayout;
class WWidget;
} // namespace Wt

class WCollapsingContextPanel;

/// While the pane at the end of a column is folded, its room goes to the list above it; unfolded, it
/// takes all the room that there is, and the list gets back the height that it had. Column and list
/// live as long as the pane.
void giveRoomWhenFolded(WCollapsingContextPanel& pane, Wt::WBoxLayout& column, Wt::WWidget& list);
