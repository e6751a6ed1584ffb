#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace Wt::Impl {

/// A file of toolkit/client, put into the program by the build (cmake/EmbedClient.cmake).
struct ClientFile {
    std::string_view name;     ///< "page.js"
    const unsigned char* gzip; ///< compressed content
    std::size_t gzipSize;
    std::size_t size; ///< of the content as it is
};

/// All of them, sorted by name.
std::span<const ClientFile> clientFiles();

/// Changes with any of the files; part of their addresses.
std::string_view clientHash();

} // namespace Wt::Impl
