// HTTP requests: cut in two anywhere, they read the same; what is accepted keeps the limits.
#include "core/Limits.h"
#include "server/RequestParser.h"
#include "server/Url.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace {

using Wt::Impl::RequestParser;

struct Outcome {
    int status = 0;
    std::string target, body;
    bool done = false;
};

Outcome read(std::string_view first, std::string_view second) {
    RequestParser parser;
    Outcome outcome;
    std::string waiting;
    bool head = false;
    for (const std::string_view piece : {first, second}) {
        waiting += piece;
        while (!waiting.empty() && parser.status() == 0 && !outcome.done) {
            std::size_t used = 0;
            if (!head) {
                used = parser.putHead(waiting);
                head = parser.status() == 0 && parser.headDone();
                if (head && !parser.allowBody(100)) break;
            } else {
                std::string_view content;
                used = parser.putBody(waiting, content);
                outcome.body += content;
            }
            waiting.erase(0, used);
            outcome.done = head && parser.status() == 0 && parser.bodyDone();
            if (used == 0 && !(head && outcome.done)) break;
        }
    }
    outcome.status = parser.status();
    if (head) outcome.target = parser.request().target;
    if (head && outcome.status == 0 && parser.request().headers.size() > Wt::Impl::kHeaderCount)
        __builtin_trap();
    if (head) {
        parser.request().cookie("session");
        parser.request().headerHasToken("accept-encoding", "gzip");
    }
    return outcome;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const Outcome whole = read(text, "");
    if (whole.done && whole.target.front() != '/') __builtin_trap();
    const std::size_t cut = size / 2;
    const Outcome pieces = read(text.substr(0, cut), text.substr(cut));
    if (whole.done && (!pieces.done || pieces.body != whole.body || pieces.target != whole.target))
        __builtin_trap();
    return 0;
}
