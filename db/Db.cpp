#include "db/Db.h"

#include "platform/client/EventLog.h"
#include "platform/client/ZeqClient.h"
#include "platform/client/ZeqObj.h"
#include "shell/MirlApplication.h"

Db Db::db;

unsigned Db::getZeqClient(ZeqClient_s*& client) {
    client = nullptr;
    if (MirlApplication* application = MirlApplication::current()) client = application->getZeqClient();
    if (ZeqClient_isValid(client)) return 0;
    client = nullptr;
    if (!mClientFailureLogged.exchange(true)) EventLog_write(1, 7, __func__, "Failed to get ZEQ client.");
    return 1;
}

void Db::closeZeqClient() {
    if (MirlApplication* application = MirlApplication::current()) application->closeZeqClient();
}

unsigned Db::getIndexOfCurrentlyLoggedInMirlUsr() {
    MirlApplication* application = MirlApplication::current();
    return application ? application->getIndexOfCurrentlyLoggedInUsr() : 0;
}

void Db::zeqObjFree(json_t*& object) {
    if (!object) return;
    ZeqObj_free(object);
    object = nullptr;
}
