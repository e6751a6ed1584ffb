#include "layout/Divider.h"

#include "core/ForeignJson.h"
#include "web/ElementSpec.h"

namespace Wt::Impl {

void Divider::setPlace(std::string row, std::string column) {
    mRow = std::move(row);
    mColumn = std::move(column);
    nodeChanged();
}

void Divider::describe(ElementSpec& spec) {
    spec.tag("div");
    spec.behaviour("divider", mHorizontal ? "{\"horizontal\":true}" : "{\"horizontal\":false}");
    spec.styleClass(mHorizontal ? "Wt-divider Wt-divider-h" : "Wt-divider Wt-divider-v");
    spec.attribute("role", "separator");
    spec.attribute("aria-orientation", mHorizontal ? "vertical" : "horizontal");
    spec.attribute("tabindex", "0");
    spec.listen("resized");
    if (!mRow.empty()) {
        spec.styleClass("Wt-divider-grid");
        spec.style("grid-row", mRow);
        spec.style("grid-column", mColumn);
    }
}

void Divider::browserEvent(std::string_view kind, const boost::json::object& event) {
    const int size = foreignInt(event, "px", -1);
    if (kind == "resized" && size >= 0 && size <= kMaxSize) mResized(size);
}

void Spacer::describe(ElementSpec& spec) {
    spec.tag("div");
    spec.style("flex", mFlex);
}

} // namespace Wt::Impl
