// The service's road from a client's bytes to a changed store: frames, requests, rules.
#include "platform/service/core/JsonPtr.h"
#include "platform/service/demo/Installation.h"
#include "platform/service/net/FrameReader.h"
#include "platform/service/record/RecordJson.h"
#include "platform/service/request/ReadRequest.h"
#include "platform/service/request/WriteRequest.h"
#include "platform/service/store/Store.h"

#include <sodium.h>

namespace {

using namespace zeqd;

const Store& installation() {
    static const Store store = [] {
        if (sodium_init() < 0) __builtin_trap();
        Store fresh;
        for (const RecordPtr& record : factoryInstallation()) fresh.load(record);
        return fresh;
    }();
    return store;
}

/// The answer must be a JSON object with either rows or errors.
void checkAnswer(const std::string& text) {
    const JsonPtr json(json_loadb(text.data(), text.size(), 0, nullptr));
    const bool rows = json_object_get(json.get(), "rows") != nullptr;
    const bool errors = json_object_get(json.get(), "errors") != nullptr;
    if (rows == errors) __builtin_trap();
}

void handle(std::string_view frame) {
    ZeqRequest request;
    Errors errors;
    interpret(frame, request, errors);
    if (!errors.empty()) return checkAnswer(errorText(request.id, errors));
    if (request.method == Method::Get) return checkAnswer(answerRead(installation(), request, 0));
    Transaction tx(&installation());
    Prepared prepared;
    for (const std::string& secret : secretsOf(request)) prepared.hashes[secret] = "hash";
    Context context{tx, errors, 0, request.method, 1, prepared};
    checkAnswer(runWrite(request, context));
    moveChangeStatus(tx);
    // What is kept must be readable again.
    for (const auto& [key, record] : tx.changes())
        if (record && !JsonPtr(json_loads(diskText(*record).c_str(), 0, nullptr))) __builtin_trap();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    handle(bytes);
    FrameReader decoder;
    decoder.append(bytes);
    while (const auto frame = decoder.next()) handle(*frame);
    return 0;
}
