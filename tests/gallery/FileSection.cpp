#include "FileSection.h"

#include <Wt/Http/Request>
#include <Wt/Http/Response>
#include <Wt/WAnchor>
#include <Wt/WApplication>
#include <Wt/WProgressBar>
#include <Wt/WPushButton>
#include <Wt/WResource>
#include <Wt/WText>

#include <boost/any.hpp>

#include <filesystem>

namespace {

/// Eight megabytes in pieces; the first line names the session that makes them.
class Pieces : public Wt::WResource {
public:
    explicit Pieces(Wt::WObject* parent) : WResource(parent) { suggestFileName("pieces.txt"); }
    ~Pieces() override { beingDeleted(); }

    void handleRequest(const Wt::Http::Request& request, Wt::Http::Response& response) override {
        constexpr int kPieces = 128;
        constexpr std::size_t kPiece = 64 * 1024;
        const auto* continuation = request.continuation();
        const int piece = continuation ? boost::any_cast<int>(continuation->data()) : 0;
        std::string bytes(kPiece, static_cast<char>('a' + piece % 26));
        if (piece == 0) {
            response.setMimeType("text/plain");
            const std::string first = Wt::WApplication::instance()->sessionId() + "\n";
            bytes.replace(0, first.size(), first);
        }
        response.out() << bytes;
        if (piece + 1 < kPieces) response.createContinuation()->setData(boost::any(piece + 1));
    }
};

} // namespace

FileSection::FileSection(Wt::WContainerWidget* parent) : Wt::WContainerWidget(parent) {
    mPlace = new Wt::WContainerWidget(this);
    mSaid = new Wt::WText("nothing", this);
    mSaid->setId("said");
    auto* send = new Wt::WPushButton("Send", this);
    send->setId("send");
    send->clicked().connect(std::bind([this] { mUpload->upload(); }));
    auto* cancel = new Wt::WPushButton("Cancel", this);
    cancel->setId("cancel");
    cancel->clicked().connect(std::bind([this] {
        offerUpload();
        mSaid->setText("cancelled");
    }));
    offerUpload();
    auto* pieces = new Wt::WAnchor(Wt::WLink(new Pieces(this)), "Fetch", this);
    pieces->setId("fetch");
    auto* name = new Wt::WText(Wt::WApplication::instance()->sessionId(), this);
    name->setId("session");
}

void FileSection::offerUpload() {
    delete mUpload;
    mUpload = new Wt::WFileUpload(mPlace);
    mUpload->setId("upload");
    mUpload->setProgressBar(new Wt::WProgressBar);
    mUpload->uploaded().connect(this, &FileSection::arrived);
    mUpload->fileTooLarge().connect(std::bind([this] { mSaid->setText("too large"); }));
    mUpload->dataReceived().connect(std::bind([this] { mSaid->setText("under way"); }));
}

void FileSection::arrived() {
    const auto size = std::filesystem::file_size(mUpload->spoolFileName());
    mSaid->setText(Wt::WString("{1}: {2}").arg(mUpload->clientFileName()).arg(static_cast<int>(size)));
}
