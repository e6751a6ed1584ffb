#pragma once

#include <Wt/WSignal.h>
#include <Wt/WWebWidget.h>

#include <cstdint>
#include <string>
#include <vector>

namespace Wt {

class WProgressBar;
namespace Http {
class UploadedFile;
}
namespace Impl {
class GoneWatch;
}

/// A field to choose a file with, and its transfer to a spool file on the server. The spool file is removed
/// with this widget, or at the next upload, unless it was stolen.
class WFileUpload : public WWebWidget {
public:
    explicit WFileUpload(WContainerWidget* parent = nullptr);
    ~WFileUpload() override;

    void setFileTextSize(int chars); ///< default 20
    int fileTextSize() const { return mTextSize; }
    void setFilters(const std::string& acceptAttributes); ///< such as ".png,image/png"
    void setProgressBar(WProgressBar* bar); ///< stays its owner's if it has a parent, else taken over
    WProgressBar* progressBar() const { return mBar; }

    bool canUpload() const { return true; }
    bool empty() const { return mSpoolPath.empty(); }        ///< nothing was uploaded
    std::string spoolFileName() const { return mSpoolPath; } ///< absolute path; empty when there is none
    WString clientFileName() const;                          ///< as the browser gave it, without folders
    WString clientContentDescription() const;                ///< media type, as the browser gave it
    void stealSpooledFile();                                 ///< the caller removes the file

    void upload(); ///< starts the transfer of the chosen file; without one, nothing happens

    EventSignal<>& uploaded();                              ///< the file is there
    Signal<::int64_t>& fileTooLarge() { return mTooLarge; } ///< its size in bytes; nothing was kept
    EventSignal<>& changed();                               ///< the user has chosen a file
    Signal<::uint64_t, ::uint64_t>& dataReceived() { return mReceived; } ///< bytes sent, bytes in all

    void childNodes(std::vector<Impl::RenderNode*>& children) override;
    void browserEvent(std::string_view kind, const boost::json::object& event) override;
    void afterRender(Impl::Renderer& renderer, bool fresh) override;

protected:
    void describe(Impl::ElementSpec& spec) override;
    void propagateSetEnabled(bool enabled) override;

private:
    struct State;

    void dropSpooledFile();
    void progress(double sent, double all);
    void fileArrived(const Http::UploadedFile& file);
    void fileRefused(std::int64_t bytes);

    std::unique_ptr<State> mState;
    WProgressBar* mBar = nullptr;
    Impl::GoneWatch* mBarWatch = nullptr; ///< child of the bar
    int mTextSize = 20;
    bool mStolen = false;
    bool mOwnBar = false;
    std::string mSpoolPath, mClientName, mMimeType, mFilters;
    Signal<::int64_t> mTooLarge;
    Signal<::uint64_t, ::uint64_t> mReceived;
};

} // namespace Wt
