#include "server/StaticFiles.h"

#include "core/Limits.h"
#include "server/Gzip.h"

#include <Wt/WServer.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace Wt::Impl {
namespace {

namespace fs = std::filesystem;

class StaticFilesTest : public testing::Test {
protected:
    StaticFilesTest() {
        char folder[] = "/tmp/wt-files-test-XXXXXX";
        mFolder = ::mkdtemp(folder);
        fs::create_directories(mFolder / "root/sub/.hidden");
        fs::create_directories(mFolder / "root-other");
        write("root/a.css", std::string(2000, 'a'));
        write("root/sub/b.png", "png");
        write("root/.secret", "x");
        write("root/sub/.hidden/c", "x");
        write("root-other/d", "x");
        fs::create_symlink("../root-other/d", mFolder / "root/out");
        fs::create_directory_symlink("..", mFolder / "root/up");
        fs::create_symlink("a.css", mFolder / "root/inside.css");
    }
    ~StaticFilesTest() override { fs::remove_all(mFolder); }

    void write(const std::string& name, const std::string& content) {
        std::ofstream(mFolder / name, std::ios::binary) << content;
    }

    fs::path mFolder;
};

HttpRequest request(const std::string& name = "", const std::string& value = "") {
    HttpRequest made;
    if (!name.empty()) made.headers.emplace_back(name, value);
    return made;
}

std::string headerOf(const HttpResponse& response, const std::string& name) {
    const std::size_t at = response.headers.find(name + ": ");
    if (at == std::string::npos) return "";
    return response.headers.substr(at + name.size() + 2,
                                   response.headers.find("\r\n", at) - at - name.size() - 2);
}

TEST_F(StaticFilesTest, ServesNothingButPlainFilesBelowTheRoot) {
    StaticFiles files(mFolder / "root", {}, true);
    StaticFiles some(mFolder / "root", {"/sub"}, true);
    const struct {
        const char* path;
        int all, onlySub;
    } rows[] = {
        {"/a.css", 200, 404},         {"/sub/b.png", 200, 200},
        {"/inside.css", 200, 404},    {"/missing", 404, 404},
        {"/.secret", 404, 404},       {"/sub/.hidden/c", 404, 404},
        {"/out", 404, 404},           {"/up/root-other/d", 404, 404},
        {"/up/root/a.css", 200, 404}, {"/sub", 404, 404},
        {"/sub/", 404, 404},          {"/", 404, 404},
        {"/subx", 404, 404},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(files.get(row.path, request()).response.status, row.all) << row.path;
        EXPECT_EQ(some.get(row.path, request()).response.status, row.onlySub) << row.path;
    }
    EXPECT_EQ(StaticFiles("", {}, true).get("/a.css", request()).response.status, 404);
}

TEST_F(StaticFilesTest, CompressesTextAndTellsWhatHasNotChanged) {
    StaticFiles files(mFolder / "root", {}, true);
    const auto plain = files.get("/a.css", request());
    const auto packed = files.get("/a.css", request("accept-encoding", "gzip, br"));
    EXPECT_EQ(*plain.response.body, std::string(2000, 'a'));
    EXPECT_EQ(gunzip(*packed.response.body, 5000), *plain.response.body);
    EXPECT_EQ(headerOf(packed.response, "Content-Encoding"), "gzip");
    EXPECT_EQ(headerOf(plain.response, "Vary"), "Accept-Encoding");
    EXPECT_NE(headerOf(plain.response, "ETag"), headerOf(packed.response, "ETag"));
    for (const auto* answer : {&plain, &packed}) {
        const auto again = files.get("/a.css", request("if-none-match", headerOf(answer->response, "ETag")));
        EXPECT_EQ(again.response.status, 304);
        EXPECT_FALSE(again.response.body);
    }
    EXPECT_EQ(files.get("/a.css", request("if-none-match", "\"other\"")).response.status, 200);
    EXPECT_FALSE(StaticFiles(mFolder / "root", {}, false)
                     .get("/a.css", request("accept-encoding", "gzip"))
                     .response.headers.find("gzip") != std::string::npos);
}

TEST_F(StaticFilesTest, LargeFilesAreStreamedAndTheCacheStaysBounded) {
    write("root/large.bin", std::string(kCachedFileBytes + 1, 'x'));
    StaticFiles files(mFolder / "root", {}, true);
    const auto large = files.get("/large.bin", request());
    EXPECT_GE(large.file.descriptor, 0);
    EXPECT_EQ(large.file.size, kCachedFileBytes + 1);
    // Many more than fit: each is still served as it is.
    for (int i = 0; i < 20; ++i)
        write("root/" + std::to_string(i) + ".png",
              std::string(kCachedFileBytes, static_cast<char>('a' + i)));
    for (int round = 0; round < 2; ++round)
        for (int i = 0; i < 20; ++i)
            EXPECT_EQ(files.get("/" + std::to_string(i) + ".png", request()).response.body->front(), 'a' + i);
}

TEST_F(StaticFilesTest, RefusesARootThatIsNone) {
    EXPECT_THROW(StaticFiles(mFolder / "nowhere", {}, true), WServer::Exception);
    EXPECT_THROW(StaticFiles("/", {}, true), WServer::Exception);
}

} // namespace
} // namespace Wt::Impl
