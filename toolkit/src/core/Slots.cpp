#include <Wt/WSignal.h>

#include <algorithm>

namespace Wt {

namespace Impl {

void hold(SlotBase* slot) {
    ++slot->references;
}

void release(SlotBase* slot) {
    if (--slot->references == 0) delete slot;
}

void hold(SlotList* list) {
    ++list->references;
}

void release(SlotList* list) {
    if (--list->references == 0) delete list;
}

void addSlot(SlotList*& list, SlotBase* slot) {
    if (!list) {
        list = new SlotList;
        hold(list);
    }
    hold(slot);
    slot->list = list;
    list->slots.push_back(slot);
}

// During an emission the place stays as a gap, so that indices of outer emissions hold.
void cutSlot(SlotBase* slot) {
    SlotList* list = slot->list;
    if (!list) return;
    slot->list = nullptr;
    hold(slot);
    for (WObject* target : std::exchange(slot->targets, {})) target->slotCut(slot);
    const auto place = std::find(list->slots.begin(), list->slots.end(), slot);
    if (list->emitting) {
        *place = nullptr;
        list->gaps = true;
    } else {
        list->slots.erase(place);
    }
    release(slot);
    release(slot);
}

void closeList(SlotList* list) {
    list->alive = false;
    for (std::size_t i = list->slots.size(); i-- > 0;)
        if (i < list->slots.size() && list->slots[i]) cutSlot(list->slots[i]);
    release(list);
}

void trackTarget(SlotBase* slot, WObject* target) {
    slot->targets.push_back(target);
    target->slotLeadsHere(slot);
}

Emission::Emission(SlotList* list) : mList(list), mEnd(list->slots.size()) {
    hold(list);
    ++list->emitting;
}

Emission::~Emission() {
    if (mCurrent) release(mCurrent);
    if (--mList->emitting == 0 && mList->gaps) {
        std::erase(mList->slots, nullptr);
        mList->gaps = false;
    }
    release(mList);
}

SlotBase* Emission::next() {
    if (mCurrent) release(std::exchange(mCurrent, nullptr));
    while (mIndex < mEnd) {
        SlotBase* slot = mList->slots[mIndex++];
        if (!slot || slot->blocked) continue;
        hold(slot);
        return mCurrent = slot;
    }
    return nullptr;
}

} // namespace Impl

namespace Signals {

connection::connection(Impl::SlotBase* slot) : mSlot(slot) {
    if (mSlot) Impl::hold(mSlot);
}

connection::connection(const connection& other) : connection(other.mSlot) {}

connection& connection::operator=(const connection& other) {
    if (other.mSlot) Impl::hold(other.mSlot);
    if (mSlot) Impl::release(mSlot);
    mSlot = other.mSlot;
    return *this;
}

connection::~connection() {
    if (mSlot) Impl::release(mSlot);
}

void connection::disconnect() const {
    if (mSlot) Impl::cutSlot(mSlot);
}

bool connection::connected() const {
    return mSlot && mSlot->list;
}

void connection::block(bool should_block) {
    if (mSlot) mSlot->blocked = should_block;
}

bool connection::blocked() const {
    return mSlot && mSlot->blocked;
}

} // namespace Signals

SignalBase::~SignalBase() {
    if (mSlots) Impl::closeList(mSlots);
}

bool SignalBase::isConnected() const {
    if (!mSlots) return false;
    return std::any_of(mSlots->slots.begin(), mSlots->slots.end(),
                       [](auto* slot) { return slot != nullptr; });
}

Signals::connection SignalBase::add(Impl::SlotBase* slot) {
    Impl::addSlot(mSlots, slot);
    connectionsChanged();
    return Signals::connection(slot);
}

Impl::SlotList* SignalBase::ensureList() {
    if (!mSlots) {
        mSlots = new Impl::SlotList;
        Impl::hold(mSlots);
    }
    return mSlots;
}

void EventSignalBase::preventDefaultAction(bool prevent) {
    mPreventDefault = prevent;
    senderChanged();
}

void EventSignalBase::preventPropagation(bool prevent) {
    mPreventPropagation = prevent;
    senderChanged();
}

void EventSignalBase::senderChanged() {
    if (mSender) mSender->eventSignalChanged();
}

} // namespace Wt
