#include "widgets/WWidgetZeq.h"

unsigned WWidgetZeq::writeToDatabase(const Indexes&, Errors&) {
    return 1;
}

void WWidgetZeq::setZeqParam(json_t*) {}

void WWidgetZeq::markEdited() {
    setContentChanged();
    signalAContentChange();
}
