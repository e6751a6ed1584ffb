#include "web/ElementSpec.h"

#include "web/JsonText.h"
#include "web/NameTable.h"

#include <algorithm>

namespace Wt::Impl {

std::uint32_t ElementSpec::key(Group group, std::string_view name) {
    static_assert(kMaxNames < (1U << kNameBits));
    const std::uint32_t number = name.empty() ? 0 : nameNumber(name);
    return (static_cast<std::uint32_t>(group) << kNameBits) | number;
}

std::string_view ElementSpec::name(std::uint32_t key) {
    return numberName(key & ((1U << kNameBits) - 1));
}

void ElementSpec::add(std::uint32_t key, std::size_t begin) {
    const Entry entry{key, static_cast<std::uint32_t>(begin),
                      static_cast<std::uint32_t>(mText.size() - begin)};
    for (Entry& known : mEntries)
        if (known.key == key) {
            known = entry;
            return;
        }
    mEntries.push_back(entry);
}

void ElementSpec::tag(std::string_view name) {
    const auto begin = mText.size();
    appendJson(mText, name);
    add(key(Group::Tag), begin);
}

void ElementSpec::attribute(std::string_view name, std::string_view value) {
    const auto begin = mText.size();
    appendJson(mText, value);
    add(key(Group::Attribute, name), begin);
}

void ElementSpec::property(std::string_view name, std::string_view value) {
    const auto begin = mText.size();
    appendJson(mText, value);
    add(key(Group::Property, name), begin);
}

void ElementSpec::property(std::string_view name, bool value) {
    propertyJson(name, value ? "true" : "false");
}

void ElementSpec::property(std::string_view name, int value) {
    const auto begin = mText.size();
    appendJson(mText, static_cast<long long>(value));
    add(key(Group::Property, name), begin);
}

void ElementSpec::propertyJson(std::string_view name, std::string_view json) {
    const auto begin = mText.size();
    mText += json;
    add(key(Group::Property, name), begin);
}

void ElementSpec::style(std::string_view name, std::string_view value) {
    const auto begin = mText.size();
    appendJson(mText, value);
    add(key(Group::Style, name), begin);
}

void ElementSpec::styleClass(std::string_view names) {
    if (names.empty()) return;
    if (!mClasses.empty()) mClasses += ' ';
    mClasses += names;
}

void ElementSpec::text(std::string_view text) {
    const auto begin = mText.size();
    appendJson(mText, text);
    add(key(Group::Text), begin);
}

void ElementSpec::body(std::string_view nodesJson) {
    const auto begin = mText.size();
    mText += nodesJson;
    add(key(Group::Body), begin);
}

void ElementSpec::listen(std::string_view kind, int options) {
    mEvents += mEvents.empty() ? "[\"" : ",\"";
    mEvents += kind;
    if (options & PreventDefault) mEvents += '!';
    if (options & StopPropagation) mEvents += '.';
    mEvents += '"';
}

void ElementSpec::behaviour(std::string_view name, std::string_view configJson) {
    const auto begin = mText.size();
    mText += '[';
    appendJson(mText, name);
    mText += ',';
    mText += configJson;
    mText += ']';
    add(key(Group::Behaviour), begin);
}

bool ElementSpec::hasAttribute(std::string_view name) const {
    const std::uint32_t wanted = key(Group::Attribute, name);
    return std::any_of(mEntries.begin(), mEntries.end(), [&](const Entry& e) { return e.key == wanted; });
}

void ElementSpec::clear() {
    mEntries.clear();
    mText.clear();
    mClasses.clear();
    mEvents.clear();
}

void ElementSpec::finish() {
    if (!mClasses.empty()) {
        const auto begin = mText.size();
        appendJson(mText, mClasses);
        add(key(Group::Class), begin);
    }
    if (!mEvents.empty()) {
        const auto begin = mText.size();
        mText += mEvents + "]";
        add(key(Group::Events), begin);
    }
    std::sort(mEntries.begin(), mEntries.end(), [](const Entry& a, const Entry& b) { return a.key < b.key; });
}

} // namespace Wt::Impl
