#include "server/Gzip.h"

#include <zlib.h>

namespace Wt::Impl {

namespace {

constexpr int kGzipWindow = 15 + 16; // +16: gzip framing

Bytef* bytesOf(std::string_view text) {
    return reinterpret_cast<Bytef*>(const_cast<char*>(text.data())); // zlib does not write there
}

} // namespace

std::string gzip(std::string_view content, int level) {
    z_stream stream{};
    if (deflateInit2(&stream, level, Z_DEFLATED, kGzipWindow, 8, Z_DEFAULT_STRATEGY) != Z_OK) return {};
    std::string packed(deflateBound(&stream, content.size()), '\0');
    stream.next_in = bytesOf(content);
    stream.avail_in = static_cast<uInt>(content.size());
    stream.next_out = bytesOf(packed);
    stream.avail_out = static_cast<uInt>(packed.size());
    const bool done = deflate(&stream, Z_FINISH) == Z_STREAM_END;
    packed.resize(done ? stream.total_out : 0);
    deflateEnd(&stream);
    return packed;
}

std::string gunzip(std::string_view packed, std::size_t limit) {
    z_stream stream{};
    if (inflateInit2(&stream, kGzipWindow) != Z_OK) return {};
    std::string content(limit, '\0');
    stream.next_in = bytesOf(packed);
    stream.avail_in = static_cast<uInt>(packed.size());
    stream.next_out = bytesOf(content);
    stream.avail_out = static_cast<uInt>(content.size());
    const bool done = inflate(&stream, Z_FINISH) == Z_STREAM_END;
    content.resize(done ? stream.total_out : 0);
    inflateEnd(&stream);
    return content;
}

} // namespace Wt::Impl
