// Multipart bodies: the first line is the content type. However the rest is cut, the parts are the same.
#include "core/Limits.h"
#include "server/Multipart.h"

#include <cstddef>
#include <cstdint>

namespace {

using namespace Wt::Impl;

struct Recorder : PartSink {
    int beginPart(const PartHead& head) override {
        text += "<" + head.name + "|" + head.fileName + "|" + head.mimeType + ">";
        return 0;
    }
    int partData(std::string_view data) override {
        text += data;
        return 0;
    }
    int endPart() override {
        text += "</>";
        return 0;
    }
    std::string text;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view all(reinterpret_cast<const char*>(data), size);
    const std::string_view type = all.substr(0, all.find('\n'));
    const std::string_view body = all.substr(std::min(type.size() + 1, size));
    Recorder whole;
    MultipartParser atOnce(type, whole);
    const int status = atOnce.feed(body);
    Recorder pieces;
    MultipartParser byByte(type, pieces);
    int last = 0;
    for (std::size_t i = 0; i < body.size() && last == 0; ++i) last = byByte.feed(body.substr(i, 1));
    if (!body.empty() && (status != last || (status == 0 && whole.text != pieces.text))) __builtin_trap();
    return 0;
}
