#include "tests/toolkit/support/PageModel.h"

#include <boost/json.hpp>

#include <algorithm>
#include <stdexcept>

namespace toolkit_test {

namespace json = boost::json;

PageModel::~PageModel() {
    clear();
}

void PageModel::clear() {
    for (auto& [id, element] : mElements) delete element;
    mElements.clear();
    mRoot = {};
    mOthers.clear();
}

void PageModel::apply(const std::string& operations) {
    if (operations.empty()) return;
    const json::value list = json::parse(operations);
    for (const json::value& operation : list.as_array()) applyOne(operation.as_array());
}

PageModel::Element& PageModel::get(const json::value& id) {
    const int number = id.to_number<int>();
    if (number == 0) return mRoot;
    const auto found = mElements.find(number);
    if (found == mElements.end()) throw std::runtime_error("no element " + std::to_string(number));
    return *found->second;
}

void PageModel::applyOne(const json::array& operation) {
    const std::string name(operation[0].as_string());
    const auto place = [&](Element& parent, const json::value& before) {
        if (before.to_number<int>() == 0) return parent.children.end();
        const auto at = std::find(parent.children.begin(), parent.children.end(), &get(before));
        if (at == parent.children.end()) throw std::runtime_error("the next sibling is elsewhere");
        return at;
    };
    if (name == "c") {
        Element& parent = get(operation[1]);
        for (std::size_t i = 3; i < operation.size(); ++i) {
            Element* made = make(operation[i].as_object());
            made->parent = &parent;
            parent.children.insert(place(parent, operation[2]), made);
        }
    } else if (name == "u") {
        set(get(operation[1]), operation[2].as_object());
    } else if (name == "x") {
        Element& former = get(operation[1]);
        Element* parent = former.parent;
        const auto at =
            std::find(parent->children.begin(), parent->children.end(), &former) - parent->children.begin();
        drop(&former);
        Element* made = make(operation[2].as_object());
        made->parent = parent;
        parent->children[static_cast<std::size_t>(at)] = made;
    } else if (name == "r") {
        Element& gone = get(operation[1]);
        std::erase(gone.parent->children, &gone);
        drop(&gone);
    } else if (name == "m") {
        Element& moved = get(operation[1]);
        Element& parent = get(operation[2]);
        std::erase(moved.parent->children, &moved);
        parent.children.insert(place(parent, operation[3]), &moved);
        moved.parent = &parent;
    } else {
        mOthers.push_back(json::serialize(operation));
    }
}

PageModel::Element* PageModel::make(const json::object& spec) {
    auto* element = new Element;
    element->id = spec.at("i").to_number<int>();
    element->tag = std::string(spec.at("t").as_string());
    if (!mElements.emplace(element->id, element).second) {
        delete element;
        throw std::runtime_error("an element is made twice");
    }
    set(*element, spec);
    if (const json::value* children = spec.if_contains("c"))
        for (const json::value& child : children->as_array()) {
            element->children.push_back(make(child.as_object()));
            element->children.back()->parent = element;
        }
    return element;
}

void PageModel::set(Element& element, const json::object& groups) {
    for (const auto& [group, value] : groups) {
        if (group == "i" || group == "t" || group == "c") continue;
        if (group == "a" || group == "s" || group == "p") {
            for (const auto& [name, one] : value.as_object()) {
                const std::string key = std::string(group) + "." + std::string(name);
                if (one.is_null())
                    element.values.erase(key);
                else
                    element.values[key] = json::serialize(one);
            }
        } else if (value.is_null()) {
            element.values.erase(std::string(group));
        } else {
            element.values[std::string(group)] = json::serialize(value);
        }
    }
}

void PageModel::drop(Element* element) {
    for (Element* child : element->children) drop(child);
    mElements.erase(element->id);
    delete element;
}

const PageModel::Element* PageModel::find(int id) const {
    const auto found = mElements.find(id);
    return found == mElements.end() ? nullptr : found->second;
}

std::string PageModel::value(int id, const std::string& name) const {
    const Element* element = find(id);
    if (!element) return "";
    const auto found = element->values.find(name);
    return found == element->values.end() ? std::string() : found->second;
}

void PageModel::outline(const Element& element, std::string& out) {
    out += element.tag + std::to_string(element.id);
    if (element.children.empty()) return;
    out += '(';
    for (const Element* child : element.children) {
        if (child != element.children.front()) out += ' ';
        outline(*child, out);
    }
    out += ')';
}

std::string PageModel::outline() const {
    std::string out;
    outline(mRoot, out);
    return out;
}

} // namespace toolkit_test
