#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Wt::Impl {

/// What an element looks like, as a widget tells it (RenderNode::describe). Everything that is not told is
/// absent. Telling the same name again replaces the former value; style classes and events add up.
class ElementSpec {
public:
    /// Groups of the page protocol, in the order in which the browser applies them.
    enum class Group : std::uint8_t { Tag, Behaviour, Attribute, Style, Class, Text, Body, Events, Property };

    enum EventOption { Plain = 0, PreventDefault = 1, StopPropagation = 2 };

    /// A literal. A change of tag makes a new element.
    void tag(std::string_view name);
    void attribute(std::string_view name, std::string_view value);
    /// A property of the DOM object; value, checked, indeterminate and selectedIndex are set
    /// after the children.
    void property(std::string_view name, std::string_view value);
    void property(std::string_view name, const char* value) { property(name, std::string_view(value)); }
    void property(std::string_view name, bool value);
    void property(std::string_view name, int value);
    /// A property whose value is any JSON text.
    void propertyJson(std::string_view name, std::string_view json);
    void style(std::string_view name, std::string_view value);
    /// One or more class names, separated by blanks.
    void styleClass(std::string_view names);
    /// For elements without children.
    void text(std::string_view text);
    /// Fixed contents before the children: a JSON array of strings (text) and
    /// ["tag",{attributes},contents...].
    void body(std::string_view nodesJson);
    /// The browser reports this event of the element. Names: docs/page-protocol.md.
    void listen(std::string_view kind, int options = Plain);
    /// The element is run by a behaviour of the browser side (client/behaviours.js), which gets `configJson`.
    void behaviour(std::string_view name, std::string_view configJson = "null");

    bool hasAttribute(std::string_view name) const;

    // For the renderer.
    struct Entry {
        std::uint32_t key; // group and name number, 24 bits
        std::uint32_t begin, length;
    };
    void clear();
    /// Closes style classes and events into entries, and sorts by key.
    void finish();
    const std::vector<Entry>& entries() const { return mEntries; }
    std::string_view json(const Entry& entry) const {
        return std::string_view(mText).substr(entry.begin, entry.length);
    }
    static Group group(std::uint32_t key) { return static_cast<Group>(key >> kNameBits); }
    static std::uint32_t key(Group group, std::string_view name = "");
    static std::string_view name(std::uint32_t key);

private:
    static constexpr unsigned kNameBits = 20;

    void add(std::uint32_t key, std::size_t begin);

    std::vector<Entry> mEntries;
    std::string mText;
    std::string mClasses, mEvents;
};

} // namespace Wt::Impl
