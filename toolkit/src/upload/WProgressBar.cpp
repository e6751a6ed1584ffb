#include <Wt/WProgressBar.h>

#include "web/ElementSpec.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace Wt {

namespace {

std::string plain(double number) {
    char text[32];
    std::snprintf(text, sizeof text, "%.6g", number);
    return text;
}

} // namespace

WProgressBar::WProgressBar(WContainerWidget* parent) : WInteractWidget(parent), mFormat("%.0f %%") {}

void WProgressBar::setMinimum(double minimum) {
    setState(minimum, mMaximum, mValue);
}
void WProgressBar::setMaximum(double maximum) {
    setState(mMinimum, maximum, mValue);
}
void WProgressBar::setRange(double minimum, double maximum) {
    setState(minimum, maximum, mValue);
}
void WProgressBar::setValue(double value) {
    setState(mMinimum, mMaximum, value);
}

void WProgressBar::setState(double minimum, double maximum, double value) {
    if (std::isnan(value) || std::isnan(minimum) || std::isnan(maximum)) return;
    maximum = std::max(minimum, maximum);
    value = std::clamp(value, minimum, maximum);
    const bool moved = value != mValue;
    if (!moved && minimum == mMinimum && maximum == mMaximum) return;
    mMinimum = minimum;
    mMaximum = maximum;
    mValue = value;
    nodeChanged();
    if (!moved) return;
    const bool completed = mValue == mMaximum;
    mValueChanged.emit(mValue);
    if (completed) mCompleted.emit();
}

void WProgressBar::setFormat(const WString& format) {
    mFormat = format;
    nodeChanged();
}

double WProgressBar::percentage() const {
    return mMaximum > mMinimum ? (mValue - mMinimum) * 100 / (mMaximum - mMinimum) : 0;
}

WString WProgressBar::text() const {
    char buffer[128];
    const std::string format = mFormat.toUTF8();
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    std::snprintf(buffer, sizeof buffer, format.c_str(), percentage());
#pragma GCC diagnostic pop
    return WString::fromUTF8(buffer);
}

void WProgressBar::describe(Impl::ElementSpec& spec) {
    WInteractWidget::describe(spec);
    const std::string shown = text().toUTF8();
    spec.styleClass("Wt-progressbar");
    spec.attribute("role", "progressbar");
    spec.attribute("aria-valuemin", plain(mMinimum));
    spec.attribute("aria-valuemax", plain(mMaximum));
    spec.attribute("aria-valuenow", plain(mValue));
    spec.attribute("aria-valuetext", shown);
    spec.style("--wt-progress", plain(percentage()) + "%");
    spec.text(shown);
}

} // namespace Wt
