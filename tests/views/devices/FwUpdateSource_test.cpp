#include "views/devices/firmware/FwUpdateSource.h"

#include <gtest/gtest.h>

namespace {

TEST(FwUpdateSource, JoinsFolderAndFileWithOneSlash) {
    const struct {
        const char *location, *file, *joined;
    } rows[] = {
        {"10.0.0.1", "fw.bin", "10.0.0.1/fw.bin"},
        {"srv/", "fw.bin", "srv/fw.bin"},
        {"srv", "/fw", "srv/fw"},
        {"srv\\", "fw", "srv\\fw"},
        {"srv", "\\fw", "srv\\fw"},
        {"", "/tmp/fw", "/tmp/fw"},
        {"srv/", "/fw", "srv//fw"},
        {"", "", "/"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(joinedFileName(row.location, row.file), row.joined) << row.location << " + " << row.file;
}

TEST(FwUpdateSource, AnUploadNeverLeavesTmp) {
    const struct {
        std::string client, target;
    } rows[] = {
        {"fw.bin", "/tmp/fw.bin"},
        {"../../etc/passwd", "/tmp/passwd"},
        {"..\\..\\boot.ini", "/tmp/boot.ini"},
        {"\"; rm -rf x; \"", "/tmp/\"; rm -rf x; \""},
        {"$(reboot)", "/tmp/$(reboot)"},
        {"/", ""},
        {"..", ""},
        {"a/..", ""},
        {"", ""},
        {std::string("a\0b", 3), ""},
        {std::string(300, 'x'), ""},
    };
    for (const auto& row : rows) EXPECT_EQ(uploadTarget(row.client), row.target) << row.client;
}

} // namespace
