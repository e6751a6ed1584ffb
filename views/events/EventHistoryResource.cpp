#include "views/events/EventHistoryResource.h"

#include "db/Db.h"
#include "db/ZeqExchange.h"
#include "frame/MirlUtil.h"
#include "platform/client/EventLog.h"
#include "platform/client/ZeqReq.h"
#include "views/events/EventRecord.h"

#include <Wt/Http/Response>
#include <Wt/Http/ResponseContinuation>

#include <algorithm>
#include <memory>
#include <ostream>

namespace {

constexpr std::size_t kMaxMessage = 400; // bytes
constexpr int kLinesAtOnce = 100;

/// Where a download stands.
struct Download {
    ZeqPtr answer;
    ZeqRows::iterator next, end;
};

/// At most that many bytes, and no part of a character at the end.
void cut(std::string& text, std::size_t bytes) {
    if (text.size() <= bytes) return;
    while (bytes > 0 && (static_cast<unsigned char>(text[bytes]) & 0xC0) == 0x80) --bytes;
    text.resize(bytes);
}

/// Quoted. Spreadsheets take what begins so for a formula, also in quotes: an apostrophe before it makes it a text.
std::string cell(const std::string& text) {
    const bool formula =
        !text.empty() && std::string_view("=+-@\t\r").find(text[0]) != std::string_view::npos;
    return (formula ? "\"'" : "\"") + text + "\"";
}

std::string messageOf(const ZeqRow& event) {
    std::string message = event.text("alertMsg");
    cut(message, kMaxMessage);
    std::replace(message.begin(), message.end(), '"', '\'');
    return message;
}

/// False: an event without an originator, where the file ends.
bool writeLine(std::ostream& out, const ZeqRow& event) {
    if (!event.has("originatorEid")) {
        out << cell("") << ',' << cell(Wt::WString::tr("[RSnnn]Error").toUTF8()) << ',' << cell("") << ','
            << cell(Wt::WString::tr("events.file.ends").toUTF8()) << '\n'
            << std::flush;
        EventLog_write(2, 7, __func__, "An event has no originator: the file of the history ends there.");
        return false;
    }
    out << cell(eventDate(event)) << ',' << cell(eventSeverity(event)) << ','
        << cell(event.text("originatorEid")) << ',' << cell(messageOf(event)) << '\n'
        << std::flush;
    return true;
}

std::shared_ptr<Download> begin() {
    ZeqClient_s* client = nullptr;
    if (Db::db.getZeqClient(client) != 0) return nullptr;
    auto download = std::make_shared<Download>();
    download->answer = zeqRetrieve(ZeqReq_historicalAlertsRetrieve, client, kEventKeys);
    if (!download->answer) return nullptr;
    const ZeqRows rows(download->answer.get());
    download->next = rows.begin();
    download->end = rows.end();
    return download;
}

} // namespace

EventHistoryResource::EventHistoryResource(Wt::WObject* parent) : Wt::WResource(parent) {
    suggestFileName("event-history.csv", Attachment);
}

void EventHistoryResource::handleRequest(const Wt::Http::Request& /*request*/, Wt::Http::Response& response) {
    response.setMimeType("plain/text"); // exactly so, on purpose: no browser shows it instead of saving it
    const auto* former = response.continuation();
    const auto download = former ? boost::any_cast<std::shared_ptr<Download>>(former->data()) : begin();
    if (!download) return;
    for (int line = 0; line < kLinesAtOnce; ++line) {
        if (download->next == download->end || !writeLine(response.out(), *download->next)) return;
        ++download->next;
    }
    response.createContinuation()->setData(download);
}
