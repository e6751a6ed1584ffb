#include <Wt/WFileUpload.h>

#include "core/ForeignJson.h"
#include "core/GoneWatch.h"
#include "upload/UploadResource.h"
#include "web/ElementSpec.h"
#include "web/JsonText.h"
#include "web/Renderer.h"

#include <Wt/WProgressBar.h>

#include <unistd.h>
#include <utility>

namespace Wt {

struct WFileUpload::State {
    explicit State(WObject* sender) : uploaded(sender), changed(sender) {}
    Impl::UploadResource* resource = nullptr; ///< owned by the widget; made at the first rendering
    EventSignal<> uploaded, changed;
    bool sendPending = false; ///< the browser is to be told to send
    bool underWay = false;
};

namespace {

/// Without folders and control characters: browsers of old and hostile ones send paths.
std::string baseName(const std::string& clientName) {
    const std::size_t slash = clientName.find_last_of("/\\");
    std::string name = slash == std::string::npos ? clientName : clientName.substr(slash + 1);
    std::erase_if(name, [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7f; });
    return name;
}

} // namespace

WFileUpload::WFileUpload(WContainerWidget* parent)
    : WWebWidget(parent), mState(std::make_unique<State>(this)) {}

WFileUpload::~WFileUpload() {
    dropSpooledFile();
    delete mState->resource;
    setProgressBar(nullptr);
    leaveParent();
}

void WFileUpload::dropSpooledFile() {
    if (!mSpoolPath.empty() && !mStolen) ::unlink(mSpoolPath.c_str());
    mSpoolPath.clear();
    mStolen = false;
}

void WFileUpload::setFileTextSize(int chars) {
    mTextSize = chars;
    nodeChanged();
}

void WFileUpload::setFilters(const std::string& acceptAttributes) {
    mFilters = acceptAttributes;
    nodeChanged();
}

void WFileUpload::setProgressBar(WProgressBar* bar) {
    if (bar == mBar) return;
    Impl::GoneWatch::release(mBarWatch);
    WProgressBar* before = std::exchange(mBar, bar);
    if (std::exchange(mOwnBar, false)) delete before;
    if (!bar) return;
    mBarWatch = new Impl::GoneWatch(*bar, [this] {
        mBar = nullptr;
        mBarWatch = nullptr;
        mOwnBar = false;
    });
    if (bar->parent()) return;
    adopt(bar);
    mOwnBar = true;
    bar->hide();
    nodeChildrenChanged();
}

void WFileUpload::childNodes(std::vector<Impl::RenderNode*>& children) {
    if (mOwnBar) children.push_back(mBar);
}

WString WFileUpload::clientFileName() const {
    return WString::fromUTF8(mClientName, true);
}
WString WFileUpload::clientContentDescription() const {
    return WString::fromUTF8(mMimeType, true);
}
void WFileUpload::stealSpooledFile() {
    mStolen = true;
}

EventSignal<>& WFileUpload::uploaded() {
    return mState->uploaded;
}
EventSignal<>& WFileUpload::changed() {
    return mState->changed;
}

void WFileUpload::upload() {
    if (mState->underWay) return;
    mState->sendPending = true;
    nodeMessagePending();
}

void WFileUpload::describe(Impl::ElementSpec& spec) {
    WWebWidget::describe(spec);
    spec.styleClass("Wt-fileupload");
    spec.behaviour("upload", "{\"accept\":" + Impl::jsonText(mFilters) + "}");
    spec.attribute("data-size", std::to_string(mTextSize));
    if (!isEnabled()) spec.attribute("aria-disabled", "true");
    spec.listen("upload");
}

void WFileUpload::propagateSetEnabled(bool enabled) {
    WWebWidget::propagateSetEnabled(enabled);
    nodeChanged();
}

void WFileUpload::afterRender(Impl::Renderer& renderer, bool) {
    if (!mState->sendPending) return;
    mState->sendPending = false;
    mState->underWay = true;
    if (!mState->resource) {
        mState->resource = new Impl::UploadResource;
        mState->resource->arrived = [this](const Http::UploadedFile& file) { fileArrived(file); };
        mState->resource->refused = [this](std::int64_t bytes) { fileRefused(bytes); };
    }
    renderer.call(*this, "send", "[" + Impl::jsonText(mState->resource->url()) + "]");
}

void WFileUpload::browserEvent(std::string_view kind, const boost::json::object& event) {
    if (kind != "upload") return WWebWidget::browserEvent(kind, event);
    const std::string_view action = Impl::foreignText(event, "a");
    if (action == "changed") {
        mState->changed.emit();
    } else if (action == "progress") {
        progress(Impl::foreignInt(event, "sent"), Impl::foreignInt(event, "all"));
    } else if (action == "none" || action == "failed") {
        mState->underWay = false; // the user may try again
    }
}

void WFileUpload::progress(double sent, double all) {
    if (!mState->underWay || sent < 0 || all <= 0) return;
    if (mBar) {
        if (mOwnBar) mBar->show();
        mBar->setState(0, all, sent);
    }
    mReceived.emit(static_cast<::uint64_t>(sent), static_cast<::uint64_t>(all));
}

void WFileUpload::fileArrived(const Http::UploadedFile& file) {
    dropSpooledFile();
    mState->underWay = false;
    file.stealSpoolFile();
    mSpoolPath = file.spoolFileName();
    mClientName = baseName(file.clientFileName());
    mMimeType = file.contentType();
    if (mBar) mBar->setValue(mBar->maximum());
    mState->uploaded.emit();
}

void WFileUpload::fileRefused(std::int64_t bytes) {
    if (!mState->underWay) return;
    mState->underWay = false;
    mTooLarge.emit(bytes);
}

} // namespace Wt
