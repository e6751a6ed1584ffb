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
