#include "tests/views/CatalogueCheck.h"

#include "db/ZeqPtr.h"
#include "platform/service/catalogue/Catalogue.h"
#include "platform/service/record/FieldReader.h"
#include "tests/frame/WidgetSearch.h"
#include "widgets/ValueTexts.h"
#include "widgets/WAnchorZeq.h"
#include "widgets/WComboBoxPlus.h"
#include "widgets/WManagementMode.h"
#include "widgets/WNtpTime.h"
#include "widgets/WOsdActivateHotkeyCustom.h"
#include "widgets/WTarget.h"
#include "widgets/WTargetAny.h"
#include "widgets/WTextZeq.h"
#include "widgets/WTxIcon.h"
#include "widgets/WTxIconSelDialog.h"
#include "widgets/WUInt32Zeq.h"
#include "widgets/WUsr.h"
#include "widgets/WVideoResolution.h"

#include <Wt/WLineEdit>
#include <Wt/WTextArea>

#include <algorithm>
#include <jansson.h>
#include <type_traits>

namespace {

using Faults = std::vector<std::string>;
using zeqd::KeyRow;
using zeqd::Type;

/// A key of the catalogue and the rows of the object that it stands in.
struct Place {
    const KeyRow* row;
    std::span<const KeyRow> among;
};

void findPlaces(std::span<const KeyRow> rows, std::string_view key, std::vector<Place>& places) {
    for (const KeyRow& row : rows) {
        if (row.key == key) places.push_back({&row, rows});
        findPlaces(row.rows(), key, places);
    }
}

/// The places of a key below "resource" or "resource/object/object": the one that stands right there, else all
/// that lie deeper, for fields that are filled from a part of an answer.
std::vector<Place> placesOf(const zeqd::ResourceRow& resource, std::string_view path, std::string_view key) {
    std::span<const KeyRow> rows = resource.keys;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find('/'), path.size());
        const int at = zeqd::findKey(rows, path.substr(0, end));
        if (at < 0) return {};
        rows = rows[static_cast<std::size_t>(at)].rows();
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    if (const int at = zeqd::findKey(rows, key); at >= 0)
        return {{&rows[static_cast<std::size_t>(at)], rows}};
    std::vector<Place> places;
    findPlaces(rows, key, places);
    return places;
}

std::string quoted(const std::string& text) {
    constexpr std::size_t kMost = 50;
    return "'" + text.substr(0, kMost) +
           (text.size() > kMost ? "...' of " + std::to_string(text.size()) : "'");
}

/// Why the service refuses to store the parameters; "" when it does not.
std::string refusalOf(const json_t* params, const Place& place) {
    zeqd::Fields fields = *zeqd::defaultFields(place.among);
    zeqd::Errors errors;
    zeqd::FieldReader(zeqd::Writing::Set, errors).merge(params, place.among, fields);
    return errors.empty() ? "" : "refused (" + errors.front().detail + ")";
}

bool serviceTakes(json_t* value, const Place& place) {
    const ZeqPtr params(json_object());
    json_object_set_new(params.get(), std::string(place.row->key).c_str(), value);
    return value && refusalOf(params.get(), place).empty();
}

/// Has the widget store what it shows; why the service refuses that, "" when it does not.
std::string refusalOfShown(WWidgetZeq& bound, const Place& place) {
    const ZeqPtr params(json_object());
    bound.setContentChanged();
    bound.setZeqParam(params.get());
    return json_object_size(params.get()) == 0 ? "not sent" : refusalOf(params.get(), place);
}

void show(WWidgetZeq& bound, std::string_view value) {
    const ZeqPtr table(
        json_pack("{s:[{s:i, s:s%}]}", "rows", "index", 1, bound.key(), value.data(), value.size()));
    bound.getZeqParam(table.get(), {1}, true);
}

// Texts that one side might take and the other not: forms, and lengths about the limit.
std::vector<std::string> textProbes(const KeyRow& row) {
    std::vector<std::string> probes = {"a",
                                       "A9",
                                       "two words",
                                       "~!\"#",
                                       "\xc3\xa9",
                                       "tab\there",
                                       "line\nbreak",
                                       "00A703-030186",
                                       "00A703-03018",
                                       "00A703+030186",
                                       "1.2.3.4",
                                       "255.255.255.255",
                                       "256.1.1.1",
                                       "1.2.3",
                                       "1.2.3.4.5",
                                       "fe80::1",
                                       "::",
                                       "1:2:3:4:5:6:7:8",
                                       "1:2:3:4:5:6:7",
                                       "::ffff:1.2.3.4",
                                       "::1x2x3x4",
                                       "::g",
                                       "ntp.example.com",
                                       "localhost",
                                       "a.example",
                                       "example.c",
                                       "-x.example",
                                       "00:11:22:33:44:5f",
                                       "00-11-22-33-44-5f",
                                       "00:11-22:33:44:5f",
                                       "00:11:22:33:44:55:66:77",
                                       "00:11:22:33:44",
                                       "http://help.example/",
                                       "ftp://help.example/"};
    for (const std::uint32_t length : {row.high - 1, row.high, row.high + 1}) {
        std::string host = "." + std::string(3, 'c');
        while (host.size() < length) host.insert(0, host.size() % 60 == 59 ? "." : "h");
        probes.insert(probes.end(), {std::string(length, 'a'), host});
    }
    return probes;
}

std::vector<std::string> numberProbes(const KeyRow& row) {
    std::vector<std::string> probes = {"0", "1", "-1", "1.5", "1e2", "x", "4294967295", "4294967296"};
    for (const std::uint64_t number : {std::uint64_t{row.low}, std::uint64_t{row.high}}) {
        if (number > 0) probes.push_back(std::to_string(number - 1));
        probes.push_back(std::to_string(number));
        probes.push_back(std::to_string(number + 1));
    }
    return probes;
}

bool isWholeNumber(const std::string& text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

// Enters a text as the browser would let the user: whether it can be entered and is judged valid.
bool takes(Wt::WLineEdit& line, const std::string& text) {
    const auto most = line.maxLength();
    if (most > 0 && static_cast<int>(text.size()) > most) return false;
    line.Wt::WLineEdit::setText(Wt::WString::fromUTF8(text));
    return line.validate() == Wt::WValidator::Valid;
}

bool takes(Wt::WTextArea& area, const std::string& text) {
    const std::string most = area.attributeValue("maxlength").toUTF8();
    if (isWholeNumber(most) && text.size() > std::stoul(most)) return false;
    area.Wt::WTextArea::setText(Wt::WString::fromUTF8(text));
    return area.validate() == Wt::WValidator::Valid;
}

template <class Field>
void checkTyped(Field& field, WWidgetZeq& bound, const Place& place, Faults& faults) {
    const bool number = place.row->type == Type::Number;
    if (!number && place.row->type != Type::Text) {
        faults.push_back("is typed, but the service keeps neither text nor number");
        return;
    }
    const bool oneLine = std::is_same_v<Field, Wt::WLineEdit>;
    for (const std::string& probe : number ? numberProbes(*place.row) : textProbes(*place.row)) {
        if (oneLine && probe.find('\n') != std::string::npos) continue; // the browser drops it
        const bool widget = takes(field, probe);
        if (widget) {
            const std::string refusal = refusalOfShown(bound, place);
            if (!refusal.empty()) faults.push_back("takes " + quoted(probe) + ", " + refusal);
            continue;
        }
        json_t* value = !number                ? json_stringn(probe.data(), probe.size())
                        : isWholeNumber(probe) ? json_integer(std::stoll(probe))
                                               : nullptr;
        if (serviceTakes(value, place)) faults.push_back("does not take " + quoted(probe));
    }
}

void checkChoices(WComboBoxPlus& box, WWidgetZeq& bound, const Place& place, Faults& faults) {
    if (place.row->type != Type::Choice) {
        faults.push_back("is a choice, but not for the service");
        return;
    }
    const int items = box.count();
    for (int item = 0; item < items; ++item) {
        box.setCurrentIndex(item);
        const std::string refusal = refusalOfShown(bound, place);
        if (!refusal.empty()) faults.push_back("offers " + quoted(box.selection()) + ", " + refusal);
    }
    for (const std::string_view value : place.row->values->values) {
        show(bound, value);
        if (box.selection() != value)
            faults.push_back("shows '" + std::string(value) + "' as " + quoted(box.selection()));
    }
}

void checkWords(Wt::WText& text, WWidgetZeq& bound, const Place& place, Faults& faults) {
    if (place.row->type != Type::Choice) {
        faults.push_back("has words for texts that are no choices");
        return;
    }
    for (const std::string_view value : place.row->values->values) {
        show(bound, value);
        const std::string word = text.text().toUTF8();
        if (word.empty() || word.starts_with("??") || (word == Wt::WString::tr("[RSnnn]Unknown").toUTF8()))
            faults.push_back("has no word for '" + std::string(value) + "', but " + quoted(word));
    }
}

// Fields that choose among records or pictures: what they store is settled elsewhere, its kind is here.
bool checkPicker(WWidgetZeq& bound, const KeyRow& row, Faults& faults) {
    bool fits = false;
    if (dynamic_cast<WUsr*>(&bound))
        fits = row.type == Type::Number && row.refersTo == "user";
    else if (dynamic_cast<WTargetAny*>(&bound))
        fits = row.type == Type::Text && row.form == zeqd::Form::Eid;
    else if (dynamic_cast<WTxIcon*>(&bound))
        fits = row.type == Type::Number && row.low == 0 && row.high == WTxIconSelDialog::kIcons;
    else
        return false;
    if (!fits) faults.push_back("stores what the service does not keep there");
    if (row.access != zeqd::Access::Write) faults.push_back("is editable, but not for the service");
    return true;
}

// Only the way out of management is ever stored.
bool checkManagement(WWidgetZeq& bound, const Place& place, Faults& faults) {
    auto* box = dynamic_cast<WManagementMode*>(&bound);
    if (!box) return false;
    box->setCurrentIndex(0);
    const std::string refusal = refusalOfShown(bound, place);
    if (!refusal.empty()) faults.push_back("cannot leave, " + refusal);
    return true;
}

// The EID of a Transmitter, which the table's owner offers.
bool checkTarget(WWidgetZeq& bound, const Place& place, Faults& faults) {
    auto* box = dynamic_cast<WTarget*>(&bound);
    if (!box) return false;
    box->populateChoices({{1, false, "00A702-030011", "SCADA (A)"}});
    box->setCurrentIndex(0);
    const std::string refusal = refusalOfShown(bound, place);
    if (!refusal.empty()) faults.push_back("a target is " + refusal);
    return true;
}

// Read only texts of one kind of value.
bool checkShown(WWidgetZeq& bound, const KeyRow& row, Faults& faults) {
    Type type;
    if (dynamic_cast<WTextZeq*>(&bound) || dynamic_cast<WAnchorZeq*>(&bound))
        type = Type::Text;
    else if (dynamic_cast<WUInt32Zeq*>(&bound) || dynamic_cast<WNtpTime*>(&bound) ||
             dynamic_cast<WVideoResolution*>(&bound))
        type = Type::Number;
    else
        return false;
    if (row.type != type) faults.push_back("shows another type of value than the service keeps");
    return true;
}

Faults faultsAt(WWidgetZeq& bound, const Place& place) {
    Faults faults;
    const KeyRow& row = *place.row;
    if (row.access == zeqd::Access::Internal || row.access == zeqd::Access::Act)
        faults.push_back("is never shown by the service");
    if (auto* box = dynamic_cast<WComboBoxPlus*>(&bound))
        checkChoices(*box, bound, place, faults);
    else if (auto* line = dynamic_cast<Wt::WLineEdit*>(&bound))
        checkTyped(*line, bound, place, faults);
    else if (auto* area = dynamic_cast<Wt::WTextArea*>(&bound))
        checkTyped(*area, bound, place, faults);
    else if (auto* text = dynamic_cast<WValueText*>(&bound))
        checkWords(*text, bound, place, faults);
    else if (dynamic_cast<WOsdActivateHotkeyCustom*>(&bound)) {
        if (row.type != Type::Binary || zeqd::findKey(place.among, "length") < 0)
            faults.push_back("is a sequence of keys, but not for the service");
    } else if (!checkManagement(bound, place, faults) && !checkTarget(bound, place, faults) &&
               !checkPicker(bound, row, faults) && !checkShown(bound, row, faults))
        faults.push_back("is a widget that this check does not know; tell it how");
    return faults;
}

} // namespace

std::vector<std::string> catalogueFaultsOf(WWidgetZeq& bound) {
    const std::string_view path = bound.resource();
    const std::size_t end = std::min(path.find('/'), path.size());
    const zeqd::ResourceRow* resource = zeqd::findResource(path.substr(0, end));
    if (!resource) return {"no such resource"};
    Faults faults;
    if (bound.indexed() == (resource->shape == zeqd::Shape::Singleton))
        faults.push_back(bound.indexed() ? "is no table" : "is no singleton");
    // Two keys of an object in one field: the field has the object's name.
    const bool custom = dynamic_cast<WOsdActivateHotkeyCustom*>(&bound) != nullptr;
    const auto places =
        placesOf(*resource, path.substr(std::min(end + 1, path.size())), custom ? "sequence" : bound.key());
    if (places.empty()) faults.push_back("no such key");
    // A key that stands in several objects: the widget must fit one of them.
    Faults fewest;
    for (const Place& place : places) {
        const Faults here = faultsAt(bound, place);
        if (&place == &places.front() || here.size() < fewest.size()) fewest = here;
    }
    faults.insert(faults.end(), fewest.begin(), fewest.end());
    return faults;
}

std::vector<std::string> catalogueFaultsIn(Wt::WWidget* top, std::size_t& count) {
    Faults all;
    count = 0;
    for (WWidgetZeq* bound : widgetsIn<WWidgetZeq>(top)) {
        ++count;
        for (const std::string& fault : catalogueFaultsOf(*bound))
            all.push_back(std::string(bound->resource()) + "/" + bound->key() + ": " + fault);
    }
    return all;
}
