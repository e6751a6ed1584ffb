#include "web/Renderer.h"

#include "core/OrderedRows.h"
#include "web/JsonText.h"

#include <algorithm>

namespace Wt::Impl {

namespace {

thread_local Renderer* tCurrent = nullptr;

using Group = ElementSpec::Group;

/// The letters of the page protocol.
constexpr RowOf<Group, const char*> kGroupLetters[] = {
    {Group::Tag, "t"},   {Group::Behaviour, "b"}, {Group::Attribute, "a"},
    {Group::Style, "s"}, {Group::Class, "k"},     {Group::Text, "x"},
    {Group::Body, "n"},  {Group::Events, "e"},    {Group::Property, "p"},
};
static_assert(coversInOrder(kGroupLetters, Group::Property));

/// Groups that hold named values; the others are one value.
constexpr bool named(Group group) {
    return group == Group::Attribute || group == Group::Style || group == Group::Property;
}

/// What is remembered of a property: its key in the upper 24 bits, and FNV-1a of its text folded to 40 bits.
constexpr unsigned kHashBits = 40;

std::uint64_t shownAs(std::uint32_t key, std::string_view text) {
    std::uint64_t hash = 0xcbf29ce484222325ULL;
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3ULL;
    const std::uint64_t folded = (hash ^ (hash >> kHashBits)) & ((std::uint64_t{1} << kHashBits) - 1);
    return (std::uint64_t{key} << kHashBits) | folded;
}

constexpr std::uint32_t keyOf(std::uint64_t shown) {
    return static_cast<std::uint32_t>(shown >> kHashBits);
}

/// Writes `"a":{"name":value,...},"x":value` in the order of the keys.
class GroupWriter {
public:
    explicit GroupWriter(std::string& out) : mOut(out) {}

    void write(std::uint32_t key, std::string_view json) {
        const Group group = ElementSpec::group(key);
        if (mOpen && group == mGroup) {
            mOut += ',';
        } else {
            close();
            if (mAny) mOut += ',';
            mOut += '"';
            mOut += kGroupLetters[static_cast<unsigned>(group)].is;
            mOut += "\":";
            mOpen = named(group);
            if (mOpen) mOut += '{';
        }
        mGroup = group;
        mAny = true;
        if (mOpen) {
            appendJson(mOut, ElementSpec::name(key));
            mOut += ':';
        }
        mOut += json;
    }
    bool any() const { return mAny; }
    void close() {
        if (mOpen) mOut += '}';
        mOpen = false;
    }

private:
    std::string& mOut;
    Group mGroup = Group::Tag;
    bool mOpen = false, mAny = false;
};

std::string& next(std::string& list) {
    if (!list.empty()) list += ',';
    return list;
}

void number(std::string& out, std::uint32_t value) {
    appendJson(out, static_cast<long long>(value));
}

} // namespace

Renderer* Renderer::current() {
    return tCurrent;
}
void Renderer::setCurrent(Renderer* renderer) {
    tCurrent = renderer;
}

Renderer::~Renderer() {
    if (tCurrent == this) tCurrent = nullptr;
}

void Renderer::operation(std::string_view json) {
    next(mOperations) += json;
}

void Renderer::call(const RenderNode& node, std::string_view method, std::string_view argumentsJson) {
    std::string& out = next(mCalls);
    out += "[\"call\",";
    number(out, node.nodeId());
    out += ',';
    appendJson(out, method);
    out += ',';
    out += argumentsJson;
    out += ']';
}

RenderNode* Renderer::find(std::uint32_t id) const {
    const auto found = mReachable.find(id);
    return found == mReachable.end() ? nullptr : found->second;
}

void Renderer::shownByBrowser(RenderNode& node, std::string_view property, std::string_view json) {
    if (!node.mShown) return;
    const std::uint32_t key = ElementSpec::key(Group::Property, property);
    for (std::uint16_t i = 0; i < node.mShown->propertyCount; ++i)
        if (keyOf(node.mShown->properties[i]) == key) node.mShown->properties[i] = shownAs(key, json);
}

void Renderer::describe(RenderNode& node) {
    mSpec.clear();
    node.describe(mSpec);
    mSpec.finish();
    node.mChanged = false;
}

void Renderer::remember(RenderNode& node) {
    const auto& entries = mSpec.entries();
    Shown& shown = *node.mShown;
    if (shown.propertyCount != entries.size() || !shown.properties) {
        shown.properties = std::make_unique<std::uint64_t[]>(entries.size());
        shown.propertyCount = static_cast<std::uint16_t>(entries.size());
    }
    bool listens = false;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        shown.properties[i] = shownAs(entries[i].key, mSpec.json(entries[i]));
        if (ElementSpec::group(entries[i].key) == Group::Events) listens = true;
    }
    if (listens)
        mReachable.insert_or_assign(node.mId, &node);
    else
        mReachable.erase(node.mId);
}

void Renderer::rememberChildren(RenderNode& node, const std::vector<RenderNode*>& children) {
    Shown& shown = *node.mShown;
    shown.children = children.empty() ? nullptr : std::make_unique<std::uint32_t[]>(children.size());
    shown.childCount = static_cast<std::uint32_t>(children.size());
    for (std::size_t i = 0; i < children.size(); ++i) shown.children[i] = children[i]->mId;
    shown.childrenSent = true;
}

void Renderer::create(std::string& out, RenderNode& node) {
    node.mShown = std::make_unique<Shown>();
    describe(node);
    out += "{\"i\":";
    number(out, node.mId);
    out += ',';
    GroupWriter groups(out);
    for (const auto& entry : mSpec.entries()) groups.write(entry.key, mSpec.json(entry));
    groups.close();
    remember(node);
    mAfter.emplace_back(&node, true);
    if (!node.nodeHidden() || node.nodePreloaded()) {
        std::vector<RenderNode*> children;
        node.childNodes(children);
        node.mChildrenChanged = node.mBelowChanged = false;
        rememberChildren(node, children);
        if (!children.empty()) {
            out += ",\"c\":[";
            for (std::size_t i = 0; i < children.size(); ++i) {
                if (i) out += ',';
                if (children[i]->mShown) forget(*children[i]);
                create(out, *children[i]);
            }
            out += ']';
        }
    }
    out += '}';
}

void Renderer::replace(RenderNode& node) {
    forget(node);
    std::string spec;
    create(spec, node);
    std::string& out = next(mChanges);
    out += "[\"x\",";
    number(out, node.mId);
    out += ',';
    out += spec;
    out += ']';
}

void Renderer::update(RenderNode& node) {
    describe(node);
    const auto& entries = mSpec.entries();
    const Shown& shown = *node.mShown;
    const auto* old = shown.properties.get();
    const auto* oldEnd = old + shown.propertyCount;
    std::string text;
    GroupWriter groups(text);
    bool newTag = false;
    for (const auto& entry : entries) {
        for (; old != oldEnd && keyOf(*old) < entry.key; ++old) groups.write(keyOf(*old), "null");
        const std::uint64_t now = shownAs(entry.key, mSpec.json(entry));
        const bool same = old != oldEnd && *old == now;
        if (old != oldEnd && keyOf(*old) == entry.key) ++old;
        if (same) continue;
        if (ElementSpec::group(entry.key) <= Group::Behaviour) newTag = true;
        groups.write(entry.key, mSpec.json(entry));
    }
    for (; old != oldEnd; ++old) groups.write(keyOf(*old), "null");
    groups.close();
    if (newTag) return replace(node);
    if (!groups.any()) return;
    remember(node);
    std::string& out = next(mChanges);
    out += "[\"u\",";
    number(out, node.mId);
    out += ",{";
    out += text;
    out += "}]";
}

// Brings the browser's list of children to the wanted one: removes, then walks the wanted order,
// creating and moving.
void Renderer::updateChildren(RenderNode& node) {
    node.mChildrenChanged = false;
    std::vector<RenderNode*> wanted;
    node.childNodes(wanted);
    std::unordered_map<std::uint32_t, bool> keep; // shown here before and still wanted
    for (RenderNode* child : wanted) keep.emplace(child->mId, child->mShown != nullptr);
    std::vector<std::uint32_t> present;
    for (std::uint32_t i = 0; i < node.mShown->childCount; ++i) {
        const std::uint32_t id = node.mShown->children[i];
        const auto found = keep.find(id);
        if (found != keep.end() && found->second) {
            present.push_back(id);
            continue;
        }
        std::string& out = next(mRemovals);
        out += "[\"r\",";
        number(out, id);
        out += ']';
    }
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        if (i < present.size() && present[i] == wanted[i]->mId) continue;
        const std::uint32_t before = i < present.size() ? present[i] : 0;
        const auto at = present.begin() + static_cast<std::ptrdiff_t>(i);
        const auto known = wanted[i]->mShown ? std::find(at, present.end(), wanted[i]->mId) : present.end();
        if (known != present.end()) {
            std::string& out = next(mChanges);
            out += "[\"m\",";
            number(out, wanted[i]->mId);
            out += ',';
            number(out, node.mId);
            out += ',';
            number(out, before);
            out += ']';
            const std::uint32_t id = *known;
            present.erase(known);
            present.insert(present.begin() + static_cast<std::ptrdiff_t>(i), id);
            continue;
        }
        std::string specs;
        const std::size_t first = i;
        for (; i < wanted.size() && !(keep[wanted[i]->mId]); ++i) {
            specs += ',';
            if (wanted[i]->mShown) forget(*wanted[i]);
            create(specs, *wanted[i]);
        }
        std::vector<std::uint32_t> made;
        for (std::size_t k = first; k < i; ++k) made.push_back(wanted[k]->mId);
        present.insert(present.begin() + static_cast<std::ptrdiff_t>(first), made.begin(), made.end());
        --i;
        std::string& out = next(mChanges);
        out += "[\"c\",";
        number(out, node.mId);
        out += ',';
        number(out, before);
        out += specs;
        out += ']';
    }
    rememberChildren(node, wanted);
}

void Renderer::visitChildren(RenderNode& node) {
    std::vector<RenderNode*> children;
    node.childNodes(children);
    for (RenderNode* child : children) visit(*child);
}

void Renderer::visit(RenderNode& node) {
    if (!node.mShown) return; // its parent's children are not what childNodes() says: sent when that is told
    if (node.mChanged) update(node);
    if (node.mMessagePending) mAfter.emplace_back(&node, false);
    if (node.nodeHidden()) return; // what is below waits until it can be seen
    if (node.mChildrenChanged || !node.mShown->childrenSent) updateChildren(node);
    if (!node.mBelowChanged) return;
    node.mBelowChanged = false;
    visitChildren(node);
}

std::string Renderer::flush() {
    if (!mRoot.mShown) {
        std::string spec;
        create(spec, mRoot);
        next(mChanges) += "[\"c\",0,0," + spec + "]";
    } else {
        visit(mRoot);
    }
    for (std::size_t i = 0; i < mAfter.size(); ++i) {
        mAfter[i].first->mMessagePending = false;
        mAfter[i].first->afterRender(*this, mAfter[i].second);
    }
    mAfter.clear();
    std::string all;
    for (std::string* part : {&mRemovals, &mChanges, &mCalls, &mOperations}) {
        if (part->empty()) continue;
        if (all.empty())
            all = "[";
        else
            all += ',';
        all += *part;
        part->clear();
        part->shrink_to_fit();
    }
    if (!all.empty()) all += ']';
    return all;
}

void Renderer::forget(RenderNode& node) {
    if (!node.mShown) return;
    gone(node);
    node.mShown.reset();
    node.mChanged = node.mChildrenChanged = false;
    std::vector<RenderNode*> children;
    node.childNodes(children);
    for (RenderNode* child : children) forget(*child);
}

void Renderer::forgetAll() {
    forget(mRoot);
    mAfter.clear();
    for (std::string* part : {&mRemovals, &mChanges, &mCalls}) part->clear();
}

void Renderer::gone(RenderNode& node) {
    mReachable.erase(node.mId);
}

} // namespace Wt::Impl
