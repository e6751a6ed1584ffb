#include "views/cascade/CascadeRequest.h"

#include "db/ThisSwx.h"
#include "db/ZeqExchange.h"
#include "platform/client/ZeqObj.h"

#include <Wt/WString>

void requestCascadeChange(const char* action, unsigned index, const char* caller, ActionResults& results) {
    results.run(Wt::WString::tr("main.Cascade").toUTF8(), [&](std::vector<std::string>& errors) -> unsigned {
        ZeqExchange exchange = ZeqExchange::setRecord("swxControl", index, caller);
        if (!exchange.ready()) return 1;
        ZeqObj_setString(exchange.params(), "cascadeRoleAction", action);
        return exchange.send(errors);
    });
}

void changeCascade(const char* action, const char* caller) {
    ActionResults results;
    requestCascadeChange(action, kThisSwxIndex, caller, results);
    if (results.failed() > 0) showFailures(results);
}
