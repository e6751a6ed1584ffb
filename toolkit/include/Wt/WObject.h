#pragma once

#include <Wt/WGlobal.h>
#include <Wt/WString.h>

#include <memory>
#include <string>
#include <vector>

namespace Wt {

class WObject;

namespace Impl {
struct SlotBase;
void trackTarget(SlotBase* slot, WObject* target);
void cutSlot(SlotBase* slot);
} // namespace Impl

/// Base of everything that receives signals and has an owner: deleting an object deletes its children and
/// cuts the connections that lead to it.
class WObject {
public:
    explicit WObject(WObject* parent = nullptr);
    WObject(const WObject&) = delete;
    WObject& operator=(const WObject&) = delete;
    virtual ~WObject();

    /// Takes ownership.
    void addChild(WObject* child);
    /// Gives up ownership.
    virtual void removeChild(WObject* child);
    virtual void setObjectName(const std::string& name);

    virtual std::string objectName() const;
    /// Unique within the session.
    virtual const std::string id() const;
    WObject* parent() const { return mParent; }

    static WString tr(const char* key);
    static WString tr(const std::string& key);

protected:
    bool hasParent() const { return mParent != nullptr; }
    void deleteChildren();
    /// For owners that keep their children in a list of their own: such an owner overrides removeChild().
    static void setOwner(WObject& child, WObject* owner) { child.mParent = owner; }
    /// A connection of an EventSignal of this object came or went.
    virtual void eventSignalChanged() {}
    std::vector<WObject*> children() const;

private:
    friend class EventSignalBase;
    friend void Impl::trackTarget(Impl::SlotBase* slot, WObject* target);
    friend void Impl::cutSlot(Impl::SlotBase* slot);

    struct Rare; // name, children, slots that lead here
    Rare& rare();
    void slotLeadsHere(Impl::SlotBase* slot);
    void slotCut(Impl::SlotBase* slot);

    WObject* mParent = nullptr;
    std::unique_ptr<Rare> mRare;
};

} // namespace Wt
