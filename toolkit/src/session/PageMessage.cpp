#include "session/PageMessage.h"

#include "core/Limits.h"

#include <boost/json/parse.hpp>

#include <algorithm>

namespace Wt::Impl {

namespace json = boost::json;

namespace {

std::optional<json::object> parseObject(std::string_view text) {
    json::parse_options options;
    options.max_depth = kEventDepth;
    boost::system::error_code ec;
    json::value value = json::parse({text.data(), text.size()}, ec, {}, options);
    if (ec || !value.is_object()) return std::nullopt;
    return std::move(value.get_object());
}

// A missing member is 0; false for anything but a number from 0.
bool readNumber(const json::object& object, const char* name, std::uint64_t& number) {
    const json::value* value = object.if_contains(name);
    if (!value) return true;
    if (value->is_int64() && value->get_int64() >= 0) {
        number = static_cast<std::uint64_t>(value->get_int64());
        return true;
    }
    return false;
}

std::string readText(const json::object& object, const char* name) {
    const json::value* value = object.if_contains(name);
    return value && value->is_string() ? std::string(value->get_string()) : std::string();
}

int readPixels(const json::object& object, const char* name) {
    const json::value* value = object.if_contains(name);
    return value && value->is_int64()
               ? static_cast<int>(std::clamp<std::int64_t>(value->get_int64(), 0, 65535))
               : 0;
}

std::optional<PageMessage> readMessage(json::object& object) {
    PageMessage message;
    json::value* events = object.if_contains("e");
    if (!readNumber(object, "n", message.number) || message.number == 0 || !events || !events->is_array())
        return std::nullopt;
    const json::array& list = events->get_array();
    if (list.size() > kEventsPerMessage) return std::nullopt;
    if (!std::all_of(list.begin(), list.end(), [](const json::value& event) { return event.is_object(); }))
        return std::nullopt;
    message.events = std::move(*events);
    return message;
}

} // namespace

std::optional<PageInput> parsePageInput(std::string_view text) {
    auto object = parseObject(text);
    PageInput input;
    if (!object || !readNumber(*object, "ack", input.ack)) return std::nullopt;
    input.hello = readText(*object, "hello");
    input.path = readText(*object, "path");
    if (!readNumber(*object, "page", input.page) || input.page == 0) return std::nullopt;
    if (object->contains("n")) {
        auto message = readMessage(*object);
        if (!message) return std::nullopt;
        input.messages.push_back(std::move(*message));
    }
    if (json::value* list = object->if_contains("m")) {
        if (!list->is_array() || list->get_array().size() > kEventsPerMessage) return std::nullopt;
        for (json::value& element : list->get_array()) {
            auto message = element.is_object() ? readMessage(element.get_object()) : std::nullopt;
            if (!message) return std::nullopt;
            input.messages.push_back(std::move(*message));
        }
    }
    return input;
}

std::optional<StartInput> parseStartInput(std::string_view text) {
    const auto object = parseObject(text);
    if (!object) return std::nullopt;
    StartInput input;
    if (object->contains("path")) input.path = readText(*object, "path");
    input.query = readText(*object, "query");
    input.width = readPixels(*object, "width");
    input.height = readPixels(*object, "height");
    return input;
}

std::string parseToken(std::string_view text) {
    const auto object = parseObject(text);
    return object ? readText(*object, "token") : std::string();
}

ByeInput parseBye(std::string_view text) {
    const auto object = parseObject(text);
    ByeInput input;
    if (object && readNumber(*object, "page", input.page)) input.token = readText(*object, "token");
    return input;
}

} // namespace Wt::Impl
