#include <Wt/WMessageResourceBundle.h>

#include "core/Log.h"

#include <Wt/WApplication.h>

#include <pugixml.hpp>

#include <sys/stat.h>

#include <map>
#include <mutex>
#include <sstream>
#include <unordered_map>

namespace Wt {

namespace Impl {
struct MessageFile {
    std::unordered_map<std::string, std::string> texts;
    ::timespec modified{};
};
} // namespace Impl

namespace {

using Impl::log;
using Impl::LogLevel;
using Impl::MessageFile;

/// The parsed files of the process. A file that was changed on disk is parsed again at the next use().
struct MessageFiles {
    std::mutex mutex;
    std::map<std::string, std::shared_ptr<const MessageFile>> byPath;
};

MessageFiles& messageFiles() {
    static MessageFiles files;
    return files;
}

/// A text without elements is told as it reads, so that it is right in plain places too;
/// one with elements as XHTML.
std::string innerText(const pugi::xml_node& message) {
    if (!message.find_child([](const pugi::xml_node& part) { return part.type() == pugi::node_element; }))
        return message.text().get();
    std::ostringstream out;
    for (const pugi::xml_node& part : message.children()) part.print(out, "", pugi::format_raw);
    return out.str();
}

std::shared_ptr<const MessageFile> parse(const std::string& path, const ::timespec& modified) {
    pugi::xml_document document;
    const auto result = document.load_file(path.c_str(), pugi::parse_default | pugi::parse_ws_pcdata);
    if (!result || std::string_view(document.document_element().name()) != "messages") {
        const std::string why = result ? "its root is not <messages>" : result.description();
        log(LogLevel::Error, "messages",
            path + " is no message file: " + why + " (at byte " + std::to_string(result.offset) + ")");
        return nullptr;
    }
    auto file = std::make_shared<MessageFile>();
    file->modified = modified;
    for (const pugi::xml_node& message : document.document_element().children("message"))
        file->texts.emplace(message.attribute("id").value(), innerText(message));
    return file;
}

std::shared_ptr<const MessageFile> load(const std::string& path) {
    struct ::stat status {};
    if (::stat(path.c_str(), &status) != 0) return nullptr;
    MessageFiles& files = messageFiles();
    const std::lock_guard lock(files.mutex);
    auto& known = files.byPath[path];
    if (!known || known->modified.tv_sec != status.st_mtim.tv_sec ||
        known->modified.tv_nsec != status.st_mtim.tv_nsec)
        if (auto fresh = parse(path, status.st_mtim)) known = std::move(fresh);
    return known;
}

} // namespace

bool WLocalizedStrings::resolvePluralKey(const std::string& key, std::string& result, unsigned long long) {
    return resolveKey(key, result);
}

WMessageResourceBundle::WMessageResourceBundle() = default;
WMessageResourceBundle::~WMessageResourceBundle() = default;

void WMessageResourceBundle::use(const std::string& path, bool) {
    const WApplication* application = WApplication::instance();
    const std::string locale = application ? application->locale().name() : std::string();
    bool any = false;
    for (const std::string& file :
         {locale.empty() ? std::string() : path + "_" + locale + ".xml", path + ".xml"})
        if (auto texts = file.empty() ? nullptr : load(file)) {
            mFiles.push_back(std::move(texts));
            any = true;
        }
    if (!any) log(LogLevel::Error, "messages", "cannot use " + path + ".xml");
}

void WMessageResourceBundle::refresh() {}

bool WMessageResourceBundle::resolveKey(const std::string& key, std::string& result) {
    for (const auto& file : mFiles) {
        const auto found = file->texts.find(key);
        if (found == file->texts.end()) continue;
        result = found->second;
        return true;
    }
    return false;
}

bool WMessageResourceBundle::resolvePluralKey(const std::string& key, std::string& result,
                                              unsigned long long) {
    return resolveKey(key, result);
}

} // namespace Wt
