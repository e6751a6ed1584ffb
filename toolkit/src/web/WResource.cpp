#include <Wt/WResource.h>

#include "web/WebSession.h"

#include <cctype>
#include <ostream>

namespace Wt {

using Impl::WebSession;

namespace Http {

Request::Request(const ParameterMap& parameters, const UploadedFileMap& files)
    : mParameters(parameters), mFiles(files) {}

const ParameterValues& Request::getParameterValues(const std::string& name) const {
    static const ParameterValues none;
    const auto found = mParameters.find(name);
    return found == mParameters.end() ? none : found->second;
}

const std::string* Request::getParameter(const std::string& name) const {
    const ParameterValues& values = getParameterValues(name);
    return values.empty() ? nullptr : &values.front();
}

const UploadedFile* Request::getUploadedFile(const std::string& name) const {
    const auto found = mFiles.find(name);
    return found == mFiles.end() ? nullptr : &found->second;
}

std::string Request::headerValue(const std::string& name) const {
    std::string lower;
    for (const char c : name) lower += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    const auto found = mHeaders.find(lower);
    return found == mHeaders.end() ? std::string() : found->second;
}

void Response::addHeader(const std::string& name, const std::string& value) {
    mHeaders.emplace_back(name, value);
}

ResponseContinuation* Response::createContinuation() {
    mContinues = true;
    return mNext;
}

} // namespace Http

WResource::WResource(WObject* parent) : WObject(parent) {}

WResource::~WResource() {
    beingDeleted();
}

void WResource::beingDeleted() {
    if (WebSession* session = WebSession::current()) session->revokeResource(*this);
    mUrl.clear();
}

void WResource::suggestFileName(const WString& name, DispositionType disposition) {
    mFileName = name;
    mDisposition = disposition;
    if (!mUrl.empty()) setChanged();
}

void WResource::setInternalPath(const std::string& path) {
    mInternalPath = path;
}

const std::string& WResource::generateUrl() {
    WebSession* session = WebSession::current();
    mUrl = session ? session->resourceUrl(*this) : std::string();
    return mUrl;
}

const std::string& WResource::url() const {
    if (mUrl.empty()) const_cast<WResource*>(this)->generateUrl();
    return mUrl;
}

void WResource::setChanged() {
    if (!mUrl.empty()) generateUrl();
    mDataChanged.emit();
}

void WResource::haveMoreData() {
    if (WebSession* session = WebSession::current()) session->haveMoreData(*this);
}

void WResource::handleAbort(const Http::Request&) {}

void WResource::write(std::ostream& out, const Http::ParameterMap& parameters,
                      const Http::UploadedFileMap& files) {
    Http::Request request(parameters, files);
    Http::ResponseContinuation continuation;
    for (bool first = true, more = true; more; first = false) {
        Http::Response response(out);
        response.mNext = &continuation;
        response.mContinuation = first ? nullptr : &continuation;
        request.mContinuation = response.mContinuation;
        handleRequest(request, response);
        more = response.mContinues && !continuation.isWaitingForMoreData();
    }
}

} // namespace Wt
