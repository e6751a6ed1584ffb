#include "session/ResourceExchange.h"
#include "test/TestSession.h"
#include "upload/UploadResource.h"

#include <Wt/Test/WTestEnvironment.h>
#include <Wt/WApplication.h>
#include <Wt/WContainerWidget.h>
#include <Wt/WFileUpload.h>
#include <Wt/WProgressBar.h>

#include <boost/json/object.hpp>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <unistd.h>

using namespace Wt;
using boost::json::object;

namespace {

/// Answers the session's POST like the server would.
class Answer : public Impl::ResourceExchange {
public:
    int status = 0;
    explicit Answer(const std::string& url) {
        method = "POST";
        const std::size_t key = std::string("/wt-resource/test/").size();
        resourceId = url.substr(key, url.find('/', key) - key);
    }
    void start(int code, const std::vector<std::pair<std::string, std::string>>&, std::int64_t) override {
        status = code;
    }
    void write(std::string, std::function<void(bool)> sent) override {
        if (sent) sent(true);
    }
    void finish() override {}
};

struct Page {
    Test::WTestEnvironment environment;
    WApplication application{environment};
    Impl::TestSession& session = Impl::TestSession::current();
    WFileUpload* upload = new WFileUpload(application.root());
    int uploads = 0, changes = 0;
    std::vector<std::int64_t> tooLarge;

    Page() {
        upload->uploaded().connect(std::bind([this] { ++uploads; }));
        upload->changed().connect(std::bind([this] { ++changes; }));
        upload->fileTooLarge().connect([this](std::int64_t bytes) { tooLarge.push_back(bytes); });
    }
    void send(object event) { session.browserEvent(*upload, "upload", std::move(event)); }

    /// Starts a transfer; gives the URL that the browser is told to post to.
    std::string start() {
        session.takeOperations();
        upload->upload();
        const std::string sent = session.takeOperations();
        const std::size_t begin = sent.find("/wt-resource/test/");
        return begin == std::string::npos ? std::string() : sent.substr(begin, sent.find('"', begin) - begin);
    }
    static std::string spool() {
        char path[] = "/tmp/upload-test-XXXXXX";
        ::close(::mkstemp(path));
        return path;
    }
    int arrive(const std::string& url, const std::string& path, const std::string& name) {
        auto answer = std::make_shared<Answer>(url);
        if (!path.empty()) answer->files.push_back({"data", name, "image/png", path, 10, false});
        serve(answer);
        return answer->status;
    }
    int refuse(const std::string& url, std::uint64_t bytes) {
        auto answer = std::make_shared<Answer>(url);
        answer->tooLarge = bytes;
        serve(answer);
        return answer->status;
    }
    void serve(const std::shared_ptr<Answer>& answer) {
        Impl::SessionEvent event;
        event.kind = Impl::SessionEvent::Kind::Resource;
        event.exchange = answer;
        session.post(std::move(event));
    }
};

} // namespace

TEST(FileUpload, aFileArrivesAndIsRemovedWithTheWidget) {
    Page page;
    page.send({{"a", "changed"}});
    EXPECT_EQ(page.changes, 1);
    EXPECT_TRUE(page.upload->empty());
    const std::string url = page.start();
    ASSERT_NE(url, "");
    const std::string first = Page::spool();
    EXPECT_EQ(page.arrive(url, first, "C:\\folder\\icon\n.png"), 200);
    EXPECT_EQ(page.uploads, 1);
    EXPECT_EQ(page.upload->spoolFileName(), first);
    EXPECT_EQ(page.upload->clientFileName(), WString("icon.png")) << "no folders, no control characters";
    ASSERT_NE(page.start(), "");
    const std::string second = Page::spool();
    page.arrive(url, second, "../../etc/passwd");
    EXPECT_EQ(page.upload->clientFileName(), WString("passwd"));
    EXPECT_FALSE(std::filesystem::exists(first)) << "the next upload replaces it";
    EXPECT_TRUE(std::filesystem::exists(second));
    delete page.upload;
    EXPECT_FALSE(std::filesystem::exists(second));
}

TEST(FileUpload, aStolenFileStays) {
    Page page;
    const std::string path = Page::spool();
    page.arrive(page.start(), path, "x");
    page.upload->stealSpooledFile();
    delete page.upload;
    EXPECT_TRUE(std::filesystem::remove(path));
}

TEST(FileUpload, refusalsAndFailures) {
    Page page;
    const std::string url = page.start();
    EXPECT_EQ(page.refuse(url, 5'000'000'000), 413);
    EXPECT_EQ(page.tooLarge, std::vector<std::int64_t>{5'000'000'000});
    EXPECT_EQ(page.refuse(url, 7), 413);
    EXPECT_EQ(page.tooLarge.size(), 1u) << "nothing was under way";
    EXPECT_NE(page.start(), "");
    EXPECT_EQ(page.start(), "") << "one transfer at a time";
    page.send({{"a", "failed"}});
    EXPECT_NE(page.start(), "");
    page.send({{"a", "none"}}); // no file was chosen
    EXPECT_EQ(page.arrive(url, "", ""), 400);
    EXPECT_EQ(page.uploads, 0);
    EXPECT_TRUE(page.upload->empty());
}

TEST(FileUpload, progressMovesTheBar) {
    Page page;
    auto* bar = new WProgressBar;
    page.upload->setProgressBar(bar);
    EXPECT_TRUE(bar->isHidden());
    page.send({{"a", "progress"}, {"sent", 5}, {"all", 10}});
    EXPECT_EQ(bar->value(), 0) << "nothing is under way";
    page.start();
    for (const object& bad : {object{{"sent", -1}, {"all", 10}}, object{{"sent", 1}, {"all", 0}}, object{}}) {
        object event = bad;
        event["a"] = "progress";
        page.send(event);
    }
    EXPECT_EQ(bar->value(), 0);
    page.send({{"a", "progress"}, {"sent", 5}, {"all", 10}});
    EXPECT_EQ(bar->percentage(), 50);
    EXPECT_FALSE(bar->isHidden());
}

TEST(ProgressBar, valuesAndSignals) {
    Page page;
    auto* bar = new WProgressBar(page.application.root());
    int completed = 0;
    std::vector<double> values;
    bar->valueChanged().connect([&](double value) { values.push_back(value); });
    bar->progressCompleted().connect(std::bind([&] { ++completed; }));
    bar->setValue(40);
    EXPECT_EQ(bar->text(), WString("40 %"));
    bar->setValue(40);
    bar->setValue(std::nan(""));
    bar->setRange(0, 20);
    EXPECT_EQ(bar->value(), 20) << "cut to the range";
    EXPECT_EQ(completed, 1);
    bar->setFormat("%.1f of a hundred");
    bar->setState(0, 0, 0);
    EXPECT_EQ(bar->text(), WString("0.0 of a hundred"));
    EXPECT_EQ(values, (std::vector<double>{40, 20, 0}));
}
