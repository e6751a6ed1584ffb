#include "widgets/WOsdActivateHotkeyCustom.h"

#include "db/Db.h"
#include "db/MergeValues.h"
#include "platform/client/ZeqObj.h"
#include "platform/client/ZeqRsp.h"
#include "widgets/WKeyCodeSelector.h"
#include "widgets/ZeqValue.h"

#include <Wt/WHBoxLayout>

#include <array>

namespace {

using Sequence = std::array<unsigned char, 2>;

bool sequenceOf(const json_t* table, const WWidgetZeq::Indexes& indexes, Sequence& sequence) {
    if (indexes.size() < 2) {
        ZeqRspUtil_getBinaryParam(table, "sequence", sequence.data(), sequence.size());
        return true;
    }
    bool same = true;
    const unsigned result = mergeValues(indexes, sequence, same, [&](unsigned index, Sequence& next) {
        unsigned row = 0;
        WWidgetZeq::Errors dropped;
        if (Db::db.findOffsetOfUInt32KeyInZeqRsp(table, "index", index, row, dropped) != 0) return 1U;
        ZeqRspUtil_getIndexedBinaryParam(table, static_cast<int>(row), "sequence", next.data(), next.size());
        return 0U;
    });
    return result == 0 && same;
}

} // namespace

WOsdActivateHotkeyCustom::WOsdActivateHotkeyCustom(const char* resource, const char* key, bool indexed,
                                                   Wt::WContainerWidget* parent)
    : Wt::WContainerWidget(parent), WWidgetZeq(resource, key, indexed), mFirst(new WKeyCodeSelector),
      mSecond(new WKeyCodeSelector) {
    auto* layout = new Wt::WHBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    for (WKeyCodeSelector* box : {mFirst, mSecond}) {
        box->setStyleClass("mirl-attribute-table-read-write-line-edit");
        box->changed().connect(this, &WOsdActivateHotkeyCustom::contentChangedHandler);
        layout->addWidget(box);
    }
    setLayout(layout);
    setAttributeValue("role", "group");
    mFirst->setAttributeValue("aria-label", tr("usr.osd.hotkey.first"));
    mSecond->setAttributeValue("aria-label", tr("usr.osd.hotkey.second"));
}

unsigned WOsdActivateHotkeyCustom::readFromDatabase(const Indexes&, Errors&, bool) {
    return 0;
}

void WOsdActivateHotkeyCustom::getZeqParam(const json_t* table, const Indexes& indexes, bool force) {
    if (hasFocus() || keepsEdit(force)) return;
    mFirst->setCurrentIndex(0);
    mSecond->setCurrentIndex(0);
    clearContentChanged();
    unsigned length = 0;
    bool same = true;
    const unsigned result = zeqExtract(table, indexes, "length", length, same);
    if (result != 0 || !same || length == 0) return;
    Sequence sequence{};
    if (!sequenceOf(table, indexes, sequence)) return;
    mFirst->setCurrentIndexByValue(sequence[0]);
    if (length > 1) mSecond->setCurrentIndexByValue(sequence[1]);
}

void WOsdActivateHotkeyCustom::setZeqParam(json_t* params) {
    if (!hasChangedContent()) return;
    Sequence sequence{};
    unsigned length = 0;
    for (const WKeyCodeSelector* box : {mFirst, mSecond})
        if (box->currentIndex() > 0) sequence[length++] = static_cast<unsigned char>(box->value());
    ZeqObj_setBinary(params, "sequence", sequence.data(), sequence.size());
    ZeqObj_setUInt32(params, "length", length);
}

void WOsdActivateHotkeyCustom::contentChangedHandler() {
    markEdited();
}

void WOsdActivateHotkeyCustom::setEnabled(bool enabled) {
    mFirst->setEnabled(enabled);
    mSecond->setEnabled(enabled);
}

void WOsdActivateHotkeyCustom::resize(const Wt::WLength& width, const Wt::WLength& height) {
    for (WKeyCodeSelector* box : {mFirst, mSecond}) {
        if (!width.isAuto()) box->setWidth(width);
        if (!height.isAuto()) box->setHeight(height);
    }
}

bool WOsdActivateHotkeyCustom::hasFocus() const {
    return mFirst->hasFocus() || mSecond->hasFocus();
}
