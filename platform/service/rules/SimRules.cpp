// Steering of the simulation.
#include "platform/service/catalogue/Catalogue.h"
#include "platform/service/core/JsonPtr.h"
#include "platform/service/domain/Devices.h"
#include "platform/service/domain/Sessions.h"
#include "platform/service/domain/Video.h"
#include "platform/service/record/FieldReader.h"
#include "platform/service/rules/Rules.h"
#include "platform/service/sim/Attach.h"
#include "platform/service/sim/Cascade.h"
#include "platform/service/sim/Enrolment.h"
#include "platform/service/sim/Life.h"
#include "platform/service/sim/SwitchLife.h"

#include <cctype>
#include <charconv>

namespace zeqd {

namespace {

/// Whether there is an EID at all: an empty text has every form.
bool named(const Context& context) {
    return context.given("eid") && !context.after->text("eid").empty();
}

/// The device of "eid", or null with an error.
RecordPtr namedDevice(Context& context) {
    if (!named(context)) {
        context.fail(Errno::MissingParameters, "eid");
        return nullptr;
    }
    for (const Res kind : {Res::Swx, Res::Rx, Res::Tx})
        if (const RecordPtr device = context.tx.findText(kind, "eid", context.after->text("eid")))
            return device;
    context.fail(Errno::NotFound, "eid");
    return nullptr;
}

void power(Transaction& tx, const Record& device, std::string_view state) {
    Record next = device;
    next.choose("simPowered", state);
    tx.put(std::move(next));
}

void deviceOffline(Context& context, const RecordPtr& device) {
    const bool swx = device->id() == Res::Swx;
    if (swx && device->index() == kThisSwitch) return context.fail(Errno::NotAllowed);
    power(context.tx, *device, "disabled");
    const RecordPtr dead = context.tx.find(device->id(), device->index());
    swx ? switchOffline(context.tx, context.now, dead) : goOffline(context.tx, context.now, {dead});
    raiseAlert(context.tx, context.now, {"enableAlertDeviceReportedInfo", "warning"}, device->text("eid"),
               deviceLabel(*device) + " went offline");
}

void offline(Context& context) {
    if (const RecordPtr device = namedDevice(context)) deviceOffline(context, device);
}

void deviceOnline(Context& context, const RecordPtr& device) {
    if (!device->is("status", "offline")) return;
    power(context.tx, *device, "enabled");
    if (device->id() == Res::Swx)
        context.tx.later(span::kPlugIn, makeTask(Step::SwitchBack, Res::Swx, device->index()));
    else
        comeBack(context.tx, device, span::kPlugIn);
}

void online(Context& context) {
    if (const RecordPtr device = namedDevice(context)) deviceOnline(context, device);
}

void faster(Context& context) {
    if (!context.given("factor")) return context.fail(Errno::MissingParameters, "factor");
    context.tx.later(0, makeTask(Step::SetFactor, Res::Swx, 0, context.after->number("factor")));
}

void jump(Context& context) {
    if (!context.given("milliseconds")) return context.fail(Errno::MissingParameters, "milliseconds");
    context.tx.later(0, makeTask(Step::JumpAhead, Res::Swx, 0, context.after->number("milliseconds")));
}

void video(Context& context) {
    const RecordPtr device = namedDevice(context);
    if (!device) return;
    if (device->id() != Res::Tx) return context.fail(Errno::DeviceTypeMismatch);
    if (!context.given("mode")) return context.fail(Errno::MissingParameters, "mode");
    if (context.after->number("mode") > videoModeCount())
        return context.fail(Errno::OutOfRange, "mode: 0 to " + std::to_string(videoModeCount()));
    Record next = *device;
    next.set("simVideoMode", context.after->number("mode"));
    context.tx.put(std::move(next));
    std::vector<std::uint32_t> watching;
    context.tx.each(Res::Connection, [&](const RecordPtr& connection) {
        if (connection->number("txIndex") == device->index())
            watching.push_back(connection->number("rxIndex"));
        return true;
    });
    for (const std::uint32_t rx : watching) showPictures(context.tx, rx, device->index());
}

void attach(Context& context) {
    if (!named(context)) return context.fail(Errno::MissingParameters, "eid");
    if (!context.given("resource")) return context.fail(Errno::MissingParameters, "resource");
    const ResourceRow* row = findResource(context.after->text("resource"));
    if (!row || (row->id != Res::Rx && row->id != Res::Tx && row->id != Res::Swx))
        return context.fail(Errno::InvalidParameter, "resource: rx, tx or swx");
    for (const Res kind : {Res::Swx, Res::Rx, Res::Tx})
        if (context.tx.findText(kind, "eid", context.after->text("eid")))
            return context.fail(Errno::NotUnique, "eid");
    if (context.tx.count(row->id) >= row->capacity) return context.fail(Errno::Capacity);
    attachDevice(context.tx, context.now, row->id, context.after->text("eid"));
}

void failNext(Context& context, std::string_view failure) {
    const RecordPtr device = namedDevice(context);
    if (!device) return;
    Record next = *device;
    next.choose("simFailure", failure);
    context.tx.put(std::move(next));
}
void failFlash(Context& context) {
    failNext(context, "flash");
}
void failPush(Context& context) {
    failNext(context, "push");
}

/// Sets any key of any record, for tests. Numbers are given as text like everything else.
void poke(Context& context) {
    for (const char* key : {"resource", "key", "value"})
        if (!context.given(key)) return context.fail(Errno::MissingParameters, key);
    const ResourceRow* row = findResource(context.after->text("resource"));
    const RecordPtr stored =
        row ? context.tx.find(row->id, context.given("record") ? context.after->number("record") : 0)
            : nullptr;
    if (!stored) return context.fail(Errno::NotFound);
    const std::string& key = context.after->text("key");
    const std::string& value = context.after->text("value");
    const int at = findKey(row->keys, key);
    const bool numeric = at >= 0 && row->keys[static_cast<std::size_t>(at)].type == Type::Number;
    std::int64_t number = 0;
    std::from_chars(value.data(), value.data() + value.size(), number);
    const JsonPtr object(json_object());
    json_object_set_new(object.get(), key.c_str(),
                        numeric ? json_integer(number) : json_string(value.c_str()));
    Record next = *stored;
    FieldReader(Writing::Load, context.errors).merge(object.get(), next.rows(), next.fields());
    if (context.errors.empty()) context.tx.put(std::move(next));
}

/// A line break would be a second event in the log.
std::string lineOf(std::string message) {
    for (char& c : message)
        if (static_cast<unsigned char>(c) < ' ' || c == 0x7F) c = ' ';
    return message;
}

/// An event in words, or one of a kind ("key", of "alertLogControl"), which comes only while its switch is on.
void alert(Context& context) {
    std::string message = context.given("message") ? context.after->text("message") : "";
    if (context.given("key")) {
        const auto& kinds = resource(Res::AlertLogControl).keys;
        const int at = findKey(kinds, context.after->text("key"));
        if (at < 0) return context.fail(Errno::InvalidParameter, "key");
        const KeyRow& kind = kinds[static_cast<std::size_t>(at)];
        if (!context.tx.singleton(Res::AlertLogControl).enabled(kind.key)) return;
        if (message.empty()) {
            message = kind.help;
            message[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(message[0])));
        }
    } else if (message.empty()) {
        return context.fail(Errno::MissingParameters, "message");
    }
    addAlert(context.tx, context.now, context.given("severity") ? context.after->choice("severity") : "info",
             context.given("eid") ? context.after->text("eid") : thisSwitchEid(context.tx), lineOf(message));
}

/// The Switch that "look", "link_down" and "link_up" are about: the named one, else the other of the cascade, else the first
/// beside this one.
std::uint32_t otherSwitch(Context& context) {
    if (context.given("eid")) {
        const RecordPtr named = context.tx.findText(Res::Swx, "eid", context.after->text("eid"));
        return named ? named->index() : 0;
    }
    if (const CascadePair pair = cascadePair(context.tx))
        return pair.master->index() == kThisSwitch ? pair.peer->index() : pair.master->index();
    const RecordPtr other =
        context.tx.findIf(Res::Swx, [](const Record& swx) { return swx.index() != kThisSwitch; });
    return other ? other->index() : 0;
}

void look(Context& context) {
    lookFrom(context, otherSwitch(context));
}

/// The other Switch, or the link to it, is gone: from here that is the same.
void takeLink(Context& context, bool up) {
    const RecordPtr other = context.tx.find(Res::Swx, otherSwitch(context));
    if (!other || other->index() == kThisSwitch) return context.fail(Errno::NotFound, "eid");
    context.after->setText("eid", other->text("eid"));
    up ? deviceOnline(context, other) : deviceOffline(context, other);
}
void linkDown(Context& context) {
    takeLink(context, false);
}
void linkUp(Context& context) {
    takeLink(context, true);
}

void manager(Context& context, std::string_view state) {
    Record globals = context.tx.singleton(Res::SystemGlobals);
    globals.choose("simManager", state);
    showManagers(globals);
    context.tx.put(std::move(globals));
}
void managerDown(Context& context) {
    manager(context, "disabled");
}
void managerUp(Context& context) {
    manager(context, "enabled");
}

struct ActionRow {
    std::string_view action;
    void (*run)(Context&);
};
constexpr ActionRow kActions[] = {
    {"offline", offline},
    {"online", online},
    {"time", faster},
    {"step", jump},
    {"video", video},
    {"attach", attach},
    {"poke", poke},
    {"alert", alert},
    {"fail_flash", failFlash},
    {"fail_push", failPush},
    {"look", look},
    {"link_down", linkDown},
    {"link_up", linkUp},
    {"manager_down", managerDown},
    {"manager_up", managerUp},
};

} // namespace

void simAction(Context& context) {
    for (const ActionRow& row : kActions)
        if (context.after->is("action", row.action)) return row.run(context);
}

} // namespace zeqd
