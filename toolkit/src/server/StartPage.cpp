#include "server/ClientFiles.h"
#include "server/EntryPoints.h"

namespace Wt::Impl {

namespace {

std::string escaped(std::string_view text) {
    std::string out;
    for (const char c : text) {
        if (c == '&')
            out += "&amp;";
        else if (c == '"')
            out += "&quot;";
        else if (c == '<')
            out += "&lt;";
        else
            out += c;
    }
    return out;
}

} // namespace

std::string startPage(const std::string& base, const std::string& favicon) {
    const std::string folder = escaped(base) + "/wt-client/" + std::string(clientHash()) + "/";
    std::string page = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
                       "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
                       "<title>Loading</title>\n";
    if (!favicon.empty()) page += "<link rel=\"icon\" href=\"" + escaped(favicon) + "\">\n";
    std::string preloads;
    for (const ClientFile& file : clientFiles()) {
        const std::string address = folder + std::string(file.name);
        if (file.name.ends_with(".css"))
            page += "<link rel=\"stylesheet\" href=\"" + address + "\">\n";
        else if (file.name != "main.js")
            preloads += "<link rel=\"modulepreload\" href=\"" + address + "\">\n";
    }
    page += preloads + "<script type=\"module\" src=\"" + folder + "main.js\"></script>\n</head>\n<body>\n";
    page += "<noscript><p>This interface needs JavaScript. Please enable it and load the page again.</p>"
            "</noscript>\n"
            "<div id=\"wt-root\"></div>\n</body>\n</html>\n";
    return page;
}

} // namespace Wt::Impl
