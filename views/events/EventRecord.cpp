#include "views/events/EventRecord.h"

#include "db/Convert.h"

std::string eventDate(const ZeqRow& event) {
    char text[64];
    Convert_dateTimeStampToString(event.time("date"), text, sizeof text);
    return text;
}

std::string eventSeverity(const ZeqRow& event) {
    return Convert_alertSeverityDbStringToUiString(event.text("severity"));
}

const char* eventMark(const ZeqRow& event) {
    const std::string severity = event.text("severity");
    if (severity == "error") return "mirl-severity-error";
    return severity == "warning" ? "mirl-severity-warning" : "mirl-severity-info";
}
