// Settings files from strangers: unpacking, and the settings in them.
#include "platform/service/archive/SettingsArchive.h"
#include "platform/service/archive/SettingsText.h"
#include "platform/service/demo/Installation.h"
#include "platform/service/store/Store.h"

#include <sodium.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zeqd;
    static const Store store = [] {
        if (sodium_init() < 0) __builtin_trap();
        Store fresh;
        for (const RecordPtr& record : factoryInstallation()) fresh.load(record);
        return fresh;
    }();
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto apply = [](std::string_view text) {
        Transaction tx(&store);
        Errors errors;
        applySettings(tx, text, errors);
        // Settings that are accepted leave somebody who can log in.
        if (errors.empty() &&
            !tx.findIf(Res::User, [](const Record& user) { return user.is("role", "admin"); }))
            __builtin_trap();
    };
    apply(bytes);
    std::string why;
    // A sealed file costs a slow key and holds nothing that the plain road does not see.
    if (size < 8 || bytes.substr(0, 6) != "ZEQSET")
        if (const auto settings = unpackSettings(bytes, "", why)) apply(*settings);
    return 0;
}
