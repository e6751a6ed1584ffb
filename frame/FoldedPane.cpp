#include "frame/FoldedPane.h"

#include "frame/WCollapsingContextPanel.h"

#include <Wt/WBoxLayout>

void giveRoomWhenFolded(WCollapsingContextPanel& pane, Wt::WBoxLayout& column, Wt::WWidget& list) {
    pane.folded().connect([&, height = list.height()](bool folded) mutable {
        if (folded)
            height = list.height();
        else
            list.setHeight(height);
        column.setStretchFactor(&pane, folded ? 0 : 1);
        column.setStretchFactor(&list, folded ? 1 : 0);
    });
}
