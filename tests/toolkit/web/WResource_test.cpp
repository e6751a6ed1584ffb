#include "session/ResourceExchange.h"
#include "tests/toolkit/support/PageSession.h"
#include "web/ResourceAnswer.h"

#include <Wt/WAnchor>
#include <Wt/WFileResource>

#include <gtest/gtest.h>

#include <fstream>

namespace {

using namespace toolkit_test;

struct Exchange : Wt::Impl::ResourceExchange {
    void start(int status_, const std::vector<std::pair<std::string, std::string>>& headers_,
               std::int64_t length_) override {
        status = status_;
        length = length_;
        for (const auto& [name, value] : headers_) answered[name] = value;
    }
    void write(std::string data, std::function<void(bool)> sent) override {
        body += data;
        largest = std::max(largest, data.size());
        taken = std::move(sent);
    }
    void finish() override { finished = true; }

    int status = 0;
    std::int64_t length = -2;
    std::map<std::string, std::string> answered;
    std::string body;
    std::size_t largest = 0;
    std::function<void(bool)> taken;
    bool finished = false;
};

/// The key in a URL: the path element behind the base.
std::string keyOf(const std::string& url) {
    const std::string base = "/wt-resource/test/";
    return url.substr(base.size(), url.find('/', base.size()) - base.size());
}

std::shared_ptr<Exchange> ask(PageSession& s, const std::string& key) {
    auto exchange = std::make_shared<Exchange>();
    exchange->method = "GET";
    exchange->resourceId = key;
    Wt::Impl::SessionEvent event;
    event.kind = Wt::Impl::SessionEvent::Kind::Resource;
    event.exchange = exchange;
    s.mailbox.post(std::move(event));
    s.session.processEvents();
    return exchange;
}

/// The browser takes what was written, as often as something is.
void takeAll(PageSession& s, Exchange& exchange) {
    while (exchange.taken) {
        const auto taken = std::exchange(exchange.taken, nullptr);
        taken(true);
        s.session.processEvents();
    }
}

class FileResource : public ::testing::Test {
protected:
    FileResource() : path(::testing::TempDir() + "/toolkit-download"), contents(20'000, 'x') {
        contents += "end";
        std::ofstream(path) << contents;
    }
    ~FileResource() override { std::remove(path.c_str()); }

    PageSession s;
    std::string path, contents;
};

TEST_F(FileResource, goes_out_in_pieces_as_the_browser_takes_them) {
    Wt::WFileResource resource("text/csv", path);
    resource.suggestFileName("r\u00e9sum\u00e9 \"1\".csv");
    const auto exchange = ask(s, keyOf(resource.url()));
    EXPECT_EQ(exchange->status, 200);
    EXPECT_EQ(exchange->length, static_cast<std::int64_t>(contents.size()));
    EXPECT_EQ(exchange->body.size(), 8192U) << "the next piece waits";
    EXPECT_EQ(exchange->answered["Content-Disposition"],
              "attachment; filename=\"r__sum____1_.csv\"; filename*=UTF-8''r%C3%A9sum%C3%A9%20%221%22.csv");
    takeAll(s, *exchange);
    EXPECT_TRUE(exchange->finished);
    EXPECT_EQ(exchange->body, contents);
    EXPECT_EQ(exchange->largest, 8192U);
}

TEST_F(FileResource, only_the_present_key_opens_it) {
    auto resource = std::make_unique<Wt::WFileResource>("text/csv", path);
    const std::string old = keyOf(resource->url());
    EXPECT_EQ(old.size(), 32U);
    resource->setChanged();
    const std::string now = keyOf(resource->url());
    EXPECT_NE(old, now);
    for (const std::string& key : {old, std::string(), std::string("0"), now + "0"})
        EXPECT_EQ(ask(s, key)->status, 404) << key;
    EXPECT_EQ(ask(s, now)->status, 200);
    resource->setFileName("/no/such/file");
    EXPECT_EQ(ask(s, keyOf(resource->url()))->status, 404);
    const std::string last = keyOf(resource->url());
    resource.reset();
    EXPECT_EQ(ask(s, last)->status, 404);
}

TEST_F(FileResource, may_die_or_lose_its_browser_in_the_middle) {
    auto resource = std::make_unique<Wt::WFileResource>("text/csv", path);
    const auto first = ask(s, keyOf(resource->url()));
    const auto second = ask(s, keyOf(resource->url()));
    std::exchange(second->taken, nullptr)(false);
    s.session.processEvents();
    EXPECT_EQ(second->taken, nullptr);
    resource.reset();
    takeAll(s, *first);
    EXPECT_FALSE(first->finished);
    EXPECT_EQ(first->body.size(), 8192U);
}

TEST_F(FileResource, links_follow_a_changed_resource) {
    auto* resource = new Wt::WFileResource("text/csv", path, s.application);
    auto* anchor = new Wt::WAnchor(Wt::WLink(resource), "get", s.root());
    s.flush();
    const int id = static_cast<int>(anchor->nodeId());
    EXPECT_EQ(s.sink.page.value(id, "a.href"), "\"" + resource->url() + "\"");
    resource->setChanged();
    s.flush();
    EXPECT_EQ(s.sink.page.value(id, "a.href"), "\"" + resource->url() + "\"");
}

// An I/O thread may report when the session is over.
TEST_F(FileResource, a_report_after_the_end_reaches_nobody) {
    std::shared_ptr<Exchange> exchange;
    {
        PageSession inner;
        Wt::WFileResource resource("text/csv", path);
        exchange = ask(inner, keyOf(resource.url()));
    }
    ASSERT_TRUE(exchange->taken);
    exchange->taken(true);
    EXPECT_FALSE(exchange->finished);
    s.session.makeCurrent();
}

} // namespace
