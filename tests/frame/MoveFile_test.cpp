#include "frame/MoveFile.h"
#include "tests/platform/support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace {

std::string contentOf(const std::filesystem::path& path) {
    std::ifstream in(path);
    return {std::istreambuf_iterator<char>(in), {}};
}

TEST(MoveFile, MovesOverAnOldFileAndReplacesALink) {
    TempFolder folder;
    const std::filesystem::path from = folder.path() / "from; touch x", to = folder.path() / "to",
                                other = folder.path() / "other";
    std::ofstream(from) << "new";
    std::ofstream(other) << "precious";
    std::filesystem::create_symlink(other, to);
    EXPECT_TRUE(moveFile(from, to));
    EXPECT_EQ(contentOf(to), "new");
    EXPECT_EQ(contentOf(other), "precious") << "the file behind the link is not ours";
    EXPECT_FALSE(std::filesystem::exists(from));

    std::filesystem::create_directory(folder.path() / "dir");
    std::ofstream(folder.path() / "dir" / "inside") << "x";
    EXPECT_FALSE(moveFile(to, folder.path() / "dir"));
    EXPECT_EQ(contentOf(to), "new") << "a failed move loses nothing";
    EXPECT_FALSE(moveFile(folder.path() / "missing", other));
    EXPECT_EQ(contentOf(other), "precious");
}

TEST(MoveFile, MovesAcrossFileSystems) {
    if (!std::filesystem::is_directory("/dev/shm")) GTEST_SKIP() << "no second file system";
    TempFolder folder;
    const std::filesystem::path from = folder.path() / "from";
    const std::filesystem::path to = "/dev/shm/movefile-test-" + std::to_string(::getpid());
    std::ofstream(from) << "content";
    EXPECT_TRUE(moveFile(from, to));
    EXPECT_EQ(contentOf(to), "content");
    EXPECT_FALSE(std::filesystem::exists(from));
    EXPECT_FALSE(std::filesystem::exists(to.string() + ".part"));
    std::filesystem::remove(to);
}

} // namespace
