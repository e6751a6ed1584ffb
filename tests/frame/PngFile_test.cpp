#include "frame/PngFile.h"
#include "tests/platform/support/TempFolder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace {

const std::string kGood("\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\0\x18\0\0\0\x18", 24);

TEST(PngFile, OnlyTheBeginningAndTheSizeCount) {
    const TempFolder folder;
    const std::string path = folder.path() / "icon.png";
    const auto verdict = [&](const std::string& bytes, std::uintmax_t size = 0) {
        std::ofstream(path, std::ios::binary) << bytes;
        if (size > 0) std::filesystem::resize_file(path, size);
        return MirlUtil_validate24x24PngFile(path);
    };
    EXPECT_EQ(verdict(kGood), PNG_GOOD) << "a broken body passes";
    EXPECT_EQ(verdict(kGood + "rest"), PNG_GOOD);
    EXPECT_EQ(verdict(kGood.substr(0, 23)), PNG_BAD);
    EXPECT_EQ(verdict(""), PNG_BAD);
    for (std::size_t at = 0; at < kGood.size(); ++at) {
        std::string other = kGood;
        other[at] = static_cast<char>(other[at] ^ 1);
        EXPECT_EQ(verdict(other), PNG_BAD) << at;
    }
    EXPECT_EQ(verdict(kGood, 10485760), PNG_GOOD);
    EXPECT_EQ(verdict(kGood, 10485761), PNG_TOO_LARGE);
    EXPECT_EQ(verdict("no png", 10485761), PNG_TOO_LARGE) << "the size is looked at first";
    EXPECT_EQ(MirlUtil_validate24x24PngFile(folder.path() / "none"), PNG_BAD);
    EXPECT_EQ(MirlUtil_validate24x24PngFile(folder.path()), PNG_BAD);
}

} // namespace
