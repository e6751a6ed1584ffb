#include "frame/OwnAddress.h"

#include "db/ThisSwx.h"
#include "db/ZeqExchange.h"
#include "db/ZeqRows.h"
#include "frame/ShowBox.h"
#include "platform/client/ZeqReq.h"
#include "widgets/SettingsPlace.h"

#include <Wt/WApplication>
#include <Wt/WEnvironment>

namespace {

struct FamilyRow {
    const char* place;
    const char* method;
};
constexpr FamilyRow kFamilies[] = {{"swx/network/ipv4", "ipv4ConfMethod"},
                                   {"swx/network/ipv6", "ipv6ConfMethod"}};

constexpr BoxRow kMoved{.type = WMsgBox::Warning, .title = "[RSnnn]New Address", .maxWidthPx = 400};

/// ":8443" of the address that the browser used; empty for the usual port.
std::string port() {
    const std::string host = Wt::WApplication::instance()->environment().hostName();
    const std::size_t colon = host.rfind(':');
    const bool within = colon == std::string::npos || host.find(']', colon) != std::string::npos;
    return within ? "" : host.substr(colon);
}

} // namespace

OwnAddress::OwnAddress() : mBefore(read()) {}

OwnAddress::Families OwnAddress::read() {
    Families families;
    ZeqExchange exchange(ZeqReqUtil_newGetResource, "swx", __func__);
    if (!exchange.ready()) return families;
    ZeqReqUtil_setIntegerQuery(exchange.request(), "index", kThisSwxIndex);
    if (exchange.sendQuietly() != 0) return families;
    for (std::size_t i = 0; i < families.size(); ++i) {
        const ZeqPtr table = SettingsPlace(kFamilies[i].place).within(exchange.response());
        for (const ZeqRow& row : ZeqRows(table.get()))
            families[i] = {row.text(kFamilies[i].method), row.text("ipAddress")};
    }
    return families;
}

std::string OwnAddress::linkTo(const Family& family) {
    if (family.method != "static" || family.address.empty()) return "";
    const bool ipV6 = family.address.find(':') != std::string::npos;
    return "https://" + (ipV6 ? "[" + family.address + "]" : family.address) + port() + "/";
}

void OwnAddress::tellIfMoved() const {
    const Families now = read();
    for (std::size_t i = 0; i < now.size(); ++i) {
        if (now[i] == mBefore[i] || now[i].method.empty() || mBefore[i].method.empty()) continue;
        const std::string link = linkTo(now[i]);
        // A method that gives the address by itself gives it later.
        if (link.empty() && now[i].method == mBefore[i].method) continue;
        WMsgBox box(kMoved.type);
        fillBox(box, kMoved,
                Wt::WString::tr(
                    link.empty()
                        ? "[RSnnn]The Switch gets its address from the network from now on. Look it up "
                          "there if this page does not answer any more."
                        : "[RSnnn]The address of this Switch has been changed. If this page does not "
                          "answer any more, go on at the new address:"));
        if (!link.empty()) box.linkAdd(link);
        box.buttonAdd(Wt::WString::tr("[RSnnn]Close"));
        box.exec();
    }
}
