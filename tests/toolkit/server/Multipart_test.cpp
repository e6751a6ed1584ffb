#include "server/Multipart.h"

#include "core/Limits.h"

#include <gtest/gtest.h>

namespace Wt::Impl {
namespace {

/// Writes down what it is told.
struct Recorder : PartSink {
    int beginPart(const PartHead& head) override {
        text += head.isFile ? "file(" + head.name + "," + head.fileName + "," + head.mimeType + ")"
                            : head.name + "=";
        return 0;
    }
    int partData(std::string_view data) override {
        text += data;
        return refuse;
    }
    int endPart() override {
        text += ";";
        return 0;
    }
    std::string text;
    int refuse = 0;
};

const std::string kType = "multipart/form-data; boundary=XX";

TEST(Multipart, ReadsPartsHoweverTheyAreCut) {
    const std::string field = "--XX\r\nContent-Disposition: form-data; name=\"a\"\r\n\r\n";
    const std::string file = "--XX\r\ncontent-disposition: form-data; name=\"f\"; filename=\"C:\\x "
                             "y\\\".bin\"\r\nContent-Type: a/b\r\n\r\n";
    const struct {
        const char* what;
        std::string body;
        const char* text; ///< null: refused
    } rows[] = {
        {"field", field + "1\r\n--XX--\r\n", "a=1;"},
        {"empty field", field + "\r\n--XX--", "a=;"},
        {"two", field + "1\r\n" + file + "data\r\n--XX--", "a=1;file(f,C:\\x y\".bin,a/b)data;"},
        {"almost a boundary", field + "x\r\n--X\r\n--XY\r\r\n--XX--", "a=x\r\n--X\r\n--XY\r;"},
        {"preamble and epilogue", "ignored\r\n" + field + "1\r\n--XX--\r\nignored --XX", "a=1;"},
        {"no parts", "--XX--", ""},
        {"junk behind the boundary", "--XXjunk\r\n\r\n", nullptr},
        {"no name", "--XX\r\nContent-Disposition: form-data\r\n\r\nx\r\n--XX--", nullptr},
        {"no disposition", "--XX\r\nContent-Type: a/b\r\n\r\nx\r\n--XX--", nullptr},
        {"attachment", "--XX\r\nContent-Disposition: attachment; name=\"a\"\r\n\r\nx\r\n--XX--", nullptr},
        {"open quote", "--XX\r\nContent-Disposition: form-data; name=\"a\r\n\r\nx\r\n--XX--", nullptr},
        {"not UTF-8", "--XX\r\nContent-Disposition: form-data; name=\"\xff\"\r\n\r\nx\r\n--XX--", nullptr},
        {"endless head", "--XX\r\nA: " + std::string(2 * kMultipartHeadBytes, 'x'), nullptr},
    };
    for (const auto& row : rows) {
        for (const std::size_t step : {std::size_t(1), std::size_t(3), row.body.size()}) {
            Recorder recorder;
            MultipartParser parser(kType, recorder);
            int status = 0;
            for (std::size_t at = 0; at < row.body.size() && status == 0; at += step)
                status = parser.feed(std::string_view(row.body).substr(at, step));
            EXPECT_EQ(status == 0 && parser.complete(), row.text != nullptr)
                << row.what << " in steps of " << step;
            if (row.text) {
                EXPECT_EQ(recorder.text, row.text) << row.what << " in steps of " << step;
            }
        }
    }
}

TEST(Multipart, PassesTheSinksRefusalOnAndStops) {
    Recorder recorder;
    recorder.refuse = 503;
    MultipartParser parser(kType, recorder);
    EXPECT_EQ(
        parser.feed("--XX\r\nContent-Disposition: form-data; name=a\r\n\r\nmuch longer than the boundary"),
        503);
    EXPECT_EQ(parser.feed("more"), 400);
}

TEST(Multipart, Boundary) {
    const struct {
        const char* type;
        const char* boundary;
    } rows[] = {
        {"multipart/form-data; boundary=abc", "abc"},
        {"Multipart/Form-Data; charset=x; Boundary=\"a b\"", "a b"},
        {"multipart/form-data", ""},
        {"multipart/form-data; boundary=", ""},
        {"multipart/mixed; boundary=abc", ""},
        {"multipart/form-data; boundary=\"abc", ""},
        {"", ""},
    };
    for (const auto& row : rows) EXPECT_EQ(multipartBoundary(row.type), row.boundary) << row.type;
    EXPECT_EQ(multipartBoundary("multipart/form-data; boundary=" + std::string(71, 'a')), "");
}

} // namespace
} // namespace Wt::Impl
