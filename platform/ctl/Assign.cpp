#include "platform/ctl/Assign.h"

#include "platform/client/Base64.h"
#include "platform/client/ZeqObj.h"
#include "platform/ctl/Print.h"

#include <charconv>
#include <fstream>
#include <iterator>

namespace zeqctl {

namespace {

[[noreturn]] void badValue(const std::string& key, const std::string& value, const std::string& wanted) {
    const std::string shown = isSecret(key) ? "the value" : "'" + value + "'";
    throw Failure(Exit::Usage, key + ": " + shown + " is not " + wanted);
}

/// The whole text as a number; false when it is none.
template <class Number>
bool toNumber(std::string_view text, Number& number) {
    const auto parsed = std::from_chars(text.data(), text.data() + text.size(), number);
    return !text.empty() && parsed.ec == std::errc() && parsed.ptr == text.data() + text.size();
}

std::string readAll(std::istream& stream, const std::string& key, const std::string& name) {
    std::string text(kValueMaxBytes + 1, '\0');
    stream.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(stream.gcount()));
    if (stream.bad()) throw Failure(Exit::Usage, key + ": cannot read " + name);
    if (text.size() > kValueMaxBytes) {
        throw Failure(Exit::Usage,
                      key + ": " + name + " is larger than " + std::to_string(kValueMaxBytes) + " bytes");
    }
    return text;
}

std::string contentOf(const std::string& key, const std::string& name, std::istream& input) {
    if (name == "-") {
        std::string text = readAll(input, key, "standard input");
        if (text.ends_with('\n')) text.pop_back();
        return text;
    }
    std::ifstream file(name, std::ios::binary);
    if (!file) throw Failure(Exit::Usage, key + ": cannot read " + name);
    return readAll(file, key, name);
}

json_t* toJson(const std::string& key, const std::string& text) {
    json_error_t error;
    json_t* value =
        zeq::jsonDepthWithin(text, zeq::kJsonMaxDepth)
            ? json_loadb(text.data(), text.size(), JSON_DECODE_ANY | JSON_REJECT_DUPLICATES, &error)
            : nullptr;
    if (!value) badValue(key, text, "JSON");
    return value;
}

json_t* toValue(const std::string& key, const std::string& text, const std::string& type, bool fromFile) {
    json_int_t number = 0;
    if (type == "number") {
        if (!toNumber(text, number)) badValue(key, text, "a whole number");
        return json_integer(number);
    }
    if (type == "object" || type == "list") return toJson(key, text);
    if (type == "binary") {
        const auto* bytes = reinterpret_cast<const unsigned char*>(text.data());
        const std::string content = fromFile ? zeq::base64Encode({bytes, text.size()}) : text;
        return json_pack("{s:s}", "$binary", content.c_str());
    }
    json_t* value = json_stringn(text.data(), text.size());
    if (!value) badValue(key, "this", "UTF-8");
    return value;
}

/// Puts the value under a path of keys with slashes, making the objects on the way.
void put(json_t* object, const std::string& path, json_t* value) {
    const std::size_t slash = path.find('/');
    const std::string key = path.substr(0, slash);
    if (slash == path.npos) {
        ZeqObj_setObject(object, key.c_str(), value);
        return;
    }
    if (!json_is_object(json_object_get(object, key.c_str())))
        ZeqObj_setObject(object, key.c_str(), ZeqObj_new());
    put(json_object_get(object, key.c_str()), path.substr(slash + 1), value);
}

} // namespace

void assign(json_t* params, const std::string& word, const ResourceInfo& info, std::istream& input) {
    const std::size_t equals = word.find('=');
    if (equals == word.npos || equals == 0) {
        throw Failure(Exit::Usage, "'" + word + "' is not KEY=VALUE");
    }
    const bool json = word[equals - 1] == ':';
    const std::string key = word.substr(0, equals - (json ? 1 : 0));
    std::string text = word.substr(equals + 1);
    const bool file = text.starts_with('@');
    if (file) text = contentOf(key, text.substr(1), input);
    put(params, key, json ? toJson(key, text) : toValue(key, text, info.typeOf(key), file));
}

void addCondition(json_t* query, const std::string& word) {
    const std::size_t equals = word.find('=');
    const std::string key = word.substr(0, equals);
    const std::string text = word.substr(equals + 1);
    json_int_t number = 0;
    put(query, key, toNumber(text, number) ? json_integer(number) : json_stringn(text.data(), text.size()));
}

JsonPtr parseIndexes(const std::string& word) {
    JsonPtr list(json_array());
    for (std::size_t begin = 0; begin <= word.size();) {
        const std::size_t end = std::min(word.find(',', begin), word.size());
        uint32_t index = 0;
        if (!toNumber(std::string_view(word).substr(begin, end - begin), index) || index == 0) return nullptr;
        json_array_append_new(list.get(), json_integer(index));
        begin = end + 1;
    }
    if (json_array_size(list.get()) == 1) return JsonPtr(json_incref(json_array_get(list.get(), 0)));
    return list;
}

} // namespace zeqctl
