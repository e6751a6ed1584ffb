#include "views/settings/files/SettingsDownload.h"

#include "db/ThisSwx.h"
#include "db/ZeqExchange.h"
#include "frame/MoveFile.h"
#include "platform/client/EventLog.h"
#include "platform/client/ZeqReq.h"
#include "shell/MirlPath.h"

#include <filesystem>
#include <mutex>
#include <stdlib.h>

namespace {

/// From the request to the taking: the service has one place for the files of all sessions.
std::mutex sOneAtATime;

} // namespace

SettingsDownload::~SettingsDownload() {
    std::error_code ignored; // nothing was made, or it is gone already
    if (!mFolder.empty()) std::filesystem::remove_all(mFolder, ignored);
}

unsigned SettingsDownload::make(const std::string& password, std::vector<std::string>& errors) {
    const std::lock_guard lock(sOneAtATime);
    ZeqExchange exchange(ZeqReqUtil_newSetResource, "swxControl", "nextButtonClickedHandler");
    if (!exchange.ready()) return 1;
    ZeqReqUtil_setIntegerParam(exchange.request(), "index", kThisSwxIndex);
    ZeqReqUtil_setStringParam(exchange.request(), "settingsAction", "zip");
    ZeqReqUtil_setStringParam(exchange.request(), "settingsPassword", password.c_str());
    if (exchange.send(errors) != 0) return 1;
    mName = password.empty() ? "settings.tar.gz" : "settings.cze";
    return take() ? 0 : 1;
}

bool SettingsDownload::take() {
    std::string folder = (std::filesystem::temp_directory_path() / "mirl-settings-XXXXXX").string();
    if (mFolder.empty() && ::mkdtemp(folder.data())) mFolder = folder; // readable by this process's user only
    mPath = mFolder + "/" + mName;
    if (!mFolder.empty() && moveFile(MirlPath_settingsBase() + mName, mPath)) return true;
    EventLog_write(1, 7, __func__, "Cannot take the settings file out of %s.",
                   MirlPath_settingsBase().c_str());
    return false;
}
