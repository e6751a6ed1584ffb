#include <Wt/WObject.h>

#include <Wt/Impl/Slots.h>

#include <algorithm>
#include <cstdio>

namespace Wt {

const NoClass NoClass_;

struct WObject::Rare {
    std::string name;
    std::vector<WObject*> children;
    std::vector<Impl::SlotBase*> slots;
};

WObject::WObject(WObject* parent) {
    if (parent) parent->addChild(this);
}

WObject::~WObject() {
    if (mRare)
        for (Impl::SlotBase* slot : std::exchange(mRare->slots, {})) Impl::cutSlot(slot);
    deleteChildren();
    if (mParent) mParent->removeChild(this);
}

void WObject::deleteChildren() {
    while (mRare && !mRare->children.empty()) {
        WObject* child = mRare->children.back();
        mRare->children.pop_back();
        child->mParent = nullptr;
        delete child;
    }
}

void WObject::addChild(WObject* child) {
    if (child->mParent == this) return;
    if (child->mParent) child->mParent->removeChild(child);
    child->mParent = this;
    rare().children.push_back(child);
}

void WObject::removeChild(WObject* child) {
    if (!mRare) return;
    auto& children = mRare->children;
    const auto place = std::find(children.rbegin(), children.rend(), child); // the latest is the likeliest
    if (place == children.rend()) return;
    children.erase(std::next(place).base());
    child->mParent = nullptr;
}

void WObject::setObjectName(const std::string& name) {
    rare().name = name;
}

std::string WObject::objectName() const {
    return mRare ? mRare->name : std::string();
}

const std::string WObject::id() const {
    char text[24];
    std::snprintf(text, sizeof text, "p%zx", reinterpret_cast<std::size_t>(this));
    return text;
}

std::vector<WObject*> WObject::children() const {
    return mRare ? mRare->children : std::vector<WObject*>();
}

WString WObject::tr(const char* key) {
    return WString::tr(key);
}
WString WObject::tr(const std::string& key) {
    return WString::tr(key);
}

WObject::Rare& WObject::rare() {
    if (!mRare) mRare = std::make_unique<Rare>();
    return *mRare;
}

void WObject::slotLeadsHere(Impl::SlotBase* slot) {
    rare().slots.push_back(slot);
}

void WObject::slotCut(Impl::SlotBase* slot) {
    auto& slots = mRare->slots;
    const auto place = std::find(slots.rbegin(), slots.rend(), slot);
    if (place != slots.rend()) slots.erase(std::next(place).base());
}

} // namespace Wt
