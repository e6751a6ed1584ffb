#pragma once

#include <boost/json/value.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Wt::Impl {

/// A numbered list of browser events, as docs/page-protocol.md has it.
struct PageMessage {
    std::uint64_t number = 0;  ///< 0: nothing but an acknowledgement
    boost::json::value events; ///< array of objects
};

/// What one WebSocket message or one poll brings.
struct PageInput {
    std::string hello;      ///< the page's token; only in the first message of a connection and in every poll
    std::uint64_t page = 1; ///< how often the page has been loaded with this token; from 1
    std::string path;       ///< internal path in the page's address; with a hello of a page loaded anew
    std::uint64_t ack = 0;  ///< highest server number that the page has applied
    std::vector<PageMessage> messages;
};

/// What the page tells of itself when it asks for a session.
struct StartInput {
    std::string path = "/";
    std::string query;
    int width = 0, height = 0; ///< 0 to 65535
};

/// Nothing for what is not well-formed, too deep, or holds too many events.
/// The text's size is the caller's to limit.
std::optional<PageInput> parsePageInput(std::string_view text);
std::optional<StartInput> parseStartInput(std::string_view text);

/// The token of `{"token": …}`; empty for anything else.
std::string parseToken(std::string_view text);

/// A page's farewell; the token is empty for what is not well-formed.
struct ByeInput {
    std::string token;
    std::uint64_t page = 1;
};
ByeInput parseBye(std::string_view text);

} // namespace Wt::Impl
