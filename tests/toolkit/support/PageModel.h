#pragma once

#include <boost/json/value.hpp>

#include <map>
#include <string>
#include <vector>

namespace toolkit_test {

/// What a browser would show: applies page operations to a tree, and refuses what a browser could not do.
class PageModel {
public:
    struct Element {
        int id = 0;
        Element* parent = nullptr;
        std::string tag;
        std::map<std::string, std::string> values; // "a.title", "s.width", "x", ... -> JSON text
        std::vector<Element*> children;
    };

    /// `operations`: the text of a JSON array. Throws std::runtime_error for an operation that does not fit.
    void apply(const std::string& operations);

    const Element* find(int id) const;
    /// The value of a group entry of an element, as JSON text; empty if there is none.
    std::string value(int id, const std::string& name) const;
    /// Tags and ids of the tree below the page's own element, children in brackets.
    std::string outline() const;
    /// Page operations other than those on elements, as they came.
    const std::vector<std::string>& others() const { return mOthers; }

    PageModel() = default;
    ~PageModel();
    PageModel(const PageModel&) = delete;
    PageModel& operator=(const PageModel&) = delete;

    /// As a page that is loaded anew.
    void clear();

private:
    void applyOne(const boost::json::array& operation);
    Element* make(const boost::json::object& spec);
    void set(Element& element, const boost::json::object& groups);
    void drop(Element* element);
    Element& get(const boost::json::value& id);
    static void outline(const Element& element, std::string& out);

    Element mRoot;
    std::map<int, Element*> mElements;
    std::vector<std::string> mOthers;
};

} // namespace toolkit_test
