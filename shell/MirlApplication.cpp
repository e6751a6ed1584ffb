#include "shell/MirlApplication.h"

#include "platform/client/EventLog.h"
#include "platform/client/ZeqClient.h"
#include "shell/DocRoot.h"
#include "shell/MirlPath.h"
#include "views/users/WUsrView.h"

#include <Wt/WMessageResourceBundle>

std::atomic<std::int32_t> MirlApplication::sAppInstanceCount{0};

MirlApplication::MirlApplication(const Wt::WEnvironment& env) : Wt::WApplication(env) {
    EventLog_write(4, 7, "MirlApplication", "In constructor. sAppInstanceCount = %d.", ++sAppInstanceCount);
    initStringTranslation();
    setBrand();
    try {
        initZeq();
    } catch (...) { // the browser went away while a nested loop waited for the database
        release();
        throw;
    }
}

MirlApplication::~MirlApplication() {
    release();
}

void MirlApplication::release() {
    EventLog_write(4, 7, "~MirlApplication", "In destructor. sAppInstanceCount = %d.", --sAppInstanceCount);
    stopTimers();
    deleteDialogs();
    if (mUsrView) mUsrView->dropProvisionalUser();
    closeZeqClient();
}

MirlApplication* MirlApplication::current() {
    return dynamic_cast<MirlApplication*>(Wt::WApplication::instance());
}

void MirlApplication::initStringTranslation() {
    setLocale("en");
    messageResourceBundle().use(std::string(Main_docRoot) + "/resources/msgs-general", true);
}

void MirlApplication::setBrand() {
    const MirlBrand& brand = MirlPath_brand();
    setCssTheme(brand.name);
    const Wt::WString product = Wt::WString::tr("[RSnnn]Orvane");
    setTitle(brand.makerKey ? Wt::WString::tr(brand.makerKey) + " " + product : product);
}

ZeqClient_s* MirlApplication::getZeqClient() {
    if (ZeqClient_isValid(mZeqClient)) return mZeqClient;
    ZeqClient_close(mZeqClient); // what is left of a connection that has ended
    mZeqClient = ZeqClient_new();
    EventLog_write(4, 7, "getZeqClient",
                   ZeqClient_isValid(mZeqClient) ? "Got new ZEQ client." : "ZeqClient_new() failed.");
    return mZeqClient;
}

void MirlApplication::closeZeqClient() {
    if (ZeqClient_isValid(mZeqClient)) EventLog_write(4, 7, "closeZeqClient", "Closing ZEQ client.");
    ZeqClient_close(mZeqClient);
    mZeqClient = nullptr;
}
