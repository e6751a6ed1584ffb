#include "views/CellText.h"

#include "web/JsonText.h"

#include <Wt/WLink.h>

namespace Wt::Impl {

namespace {

/// Without a copy of the text where the value holds one: this runs for every cell at every refresh.
void appendValue(std::string& json, const boost::any& value) {
    if (const auto* text = boost::any_cast<std::string>(&value))
        appendJson(json, *text);
    else
        appendJson(json, value.empty() ? std::string() : asString(value).toUTF8());
}

constexpr struct {
    int role;
    const char* name;
} kRoles[] = {{StyleClassRole, "c"}, {ToolTipRole, "tip"}, {DecorationRole, "i"}};

int checkState(const boost::any& value) {
    if (const auto* checked = boost::any_cast<bool>(&value)) return *checked ? 2 : 0;
    if (const auto* state = boost::any_cast<CheckState>(&value)) return *state;
    return 0;
}

} // namespace

void appendCell(std::string& json, const WAbstractItemModel& model, const WModelIndex& index) {
    const boost::any shown = model.data(index, DisplayRole);
    const std::size_t begin = json.size();
    appendValue(json, shown);
    bool object = false;
    const auto member = [&](const char* name) {
        if (!object) json.insert(begin, "{\"t\":");
        object = true;
        json += ",\"";
        json += name;
        json += "\":";
    };
    for (const auto& [role, name] : kRoles) {
        const boost::any value = model.data(index, role);
        if (value.empty()) continue;
        member(name);
        appendValue(json, value);
    }
    if (const boost::any check = model.data(index, CheckStateRole); !check.empty()) {
        member("k");
        appendJson(json, static_cast<long long>(checkState(check)));
    }
    const boost::any link = model.data(index, LinkRole);
    if (const auto* target = boost::any_cast<WLink>(&link)) {
        member("h");
        appendJson(json, target->url());
    }
    if (object) json += '}';
}

} // namespace Wt::Impl
