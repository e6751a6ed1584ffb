#pragma once

#include <Wt/Http/Request.h>
#include <Wt/Http/Response.h>
#include <Wt/WObject.h>
#include <Wt/WSignal.h>

#include <cstdint>

namespace Wt {

namespace Impl {
class ResourceExchange;
class WebSession;
} // namespace Impl

/// Something of a session that the browser can fetch by a URL. handleRequest() runs inside the session.
class WResource : public WObject {
public:
    enum DispositionType { NoDisposition, Attachment, Inline };

    explicit WResource(WObject* parent = nullptr);
    ~WResource() override;

    void suggestFileName(const WString& name, DispositionType disposition = Attachment);
    void setDispositionType(DispositionType cd) { mDisposition = cd; }
    /// Makes a new URL, so that no browser shows an old copy, and tells users of the resource.
    void setChanged();
    void setUploadProgress(bool enabled) { mUploadProgress = enabled; }
    void setInternalPath(const std::string& path);
    const std::string& generateUrl();

    const WString& suggestedFileName() const { return mFileName; }
    DispositionType dispositionType() const { return mDisposition; }
    const std::string& url() const;
    const std::string& internalPath() const { return mInternalPath; }
    /// Writes the whole resource; for tests and for saving.
    void write(std::ostream& out, const Http::ParameterMap& parameters = Http::ParameterMap(),
               const Http::UploadedFileMap& files = Http::UploadedFileMap());

    Signal<>& dataChanged() { return mDataChanged; }
    Signal<::uint64_t, ::uint64_t>& dataReceived() { return mDataReceived; }
    Signal<::int64_t>& dataExceeded() { return mDataExceeded; }

    /// Answers one request, or one piece of it if the response has a continuation.
    virtual void handleRequest(const Http::Request& request, Http::Response& response) = 0;
    virtual void handleAbort(const Http::Request& request);

protected:
    /// To be called by the destructor of every derived class: no request is handled any more.
    void beingDeleted();
    void haveMoreData();

private:
    friend class Impl::WebSession;

    WString mFileName;
    DispositionType mDisposition = NoDisposition;
    std::string mInternalPath;
    mutable std::string mUrl; // empty until asked for
    bool mUploadProgress = false;
    Signal<> mDataChanged{this};
    Signal<::uint64_t, ::uint64_t> mDataReceived{this};
    Signal<::int64_t> mDataExceeded{this};
};

} // namespace Wt
