#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>

/// Every limit and deadline of the server. Sizes in bytes unless the name says otherwise. Crossing one ends
/// the connection it happened on (docs/toolkit-server.md has the answers) and touches nothing else.
namespace Wt::Impl {

using namespace std::chrono_literals;
using Seconds = std::chrono::seconds;
using Millis = std::chrono::milliseconds;

// Requests
constexpr std::size_t kHeaderBytes = 16 * 1024;    ///< request line and headers together: 431
constexpr std::size_t kTargetBytes = 4 * 1024;     ///< request target: 414
constexpr std::size_t kHeaderCount = 100;          ///< header lines: 431
constexpr std::size_t kFormBytes = 64 * 1024;      ///< body that is not an upload: 413
constexpr std::size_t kFormFields = 500;           ///< parameters of a query, a form or a multipart body: 400
constexpr std::size_t kMultipartHeadBytes = 2048;  ///< headers of one part: 400
constexpr std::size_t kMultipartFiles = 20;        ///< files of one request: 400
constexpr std::uint64_t kUploadBytes = 128u << 20; ///< default of --max-request-size: 413
constexpr Seconds kTlsDeadline = 5s;               ///< accept to end of the TLS handshake: closed
constexpr Seconds kHeaderDeadline = 10s;           ///< first byte to end of the header: 408
constexpr Seconds kIdleDeadline = 20s;           ///< between the requests of a kept-alive connection: closed
constexpr Seconds kFormDeadline = 10s;           ///< whole body that is not an upload: 408
constexpr Seconds kUploadStall = 20s;            ///< between two pieces of an upload: 408
constexpr double kUploadLeastRate = 8 * 1024;    ///< bytes a second of an upload, on average: 408
constexpr Seconds kUploadGrace = 30s;            ///< before the rate counts
constexpr Seconds kWriteStall = 30s;             ///< until the browser takes a piece of an answer: closed
constexpr Seconds kResourceDeadline = 120s;      ///< until a session answers for a resource, per piece: 503
constexpr Seconds kLingerDeadline = 2s;          ///< reading on after a refusal, so that the answer arrives
constexpr std::uint64_t kLingerBytes = 8u << 20; ///< the same, in bytes

// WebSocket and events
constexpr std::size_t kEventMessageBytes = 64 * 1024; ///< one message of the page: 1009, or 413
constexpr std::size_t kEventDepth = 16;               ///< nesting of its JSON: 1007, or 400
constexpr std::size_t kEventsPerMessage = 500;        ///< events in it: 1008, or 400
constexpr double kMessagesPerSecond = 100;            ///< sustained; more: 1008, or 429
constexpr double kMessageBurst = 300;                 ///< at once
constexpr double kEventsPerSecond = 1000;             ///< sustained, in all messages: as above
constexpr double kEventBurst = 6000;                  ///< at once: what was kept while offline, in one poll
constexpr std::size_t kFragments = 64;                ///< frames of one message: closed
constexpr double kControlFramesPerSecond = 5;         ///< sustained; more: closed
constexpr double kControlFrameBurst = 30;             ///< at once
constexpr std::size_t kAnnouncedBytes = 16 * 1024;    ///< a larger message to the page comes behind its size
constexpr Seconds kHelloDeadline = 10s;               ///< WebSocket open to hello: closed
constexpr Seconds kWebSocketIdle = 30s; ///< nothing heard, not even the answer to a ping: closed
constexpr Seconds kPollWait = 20s;      ///< a poll without news is answered after this

// Sessions
constexpr Seconds kSilentLimit = 180s;   ///< page without a live connection: the session expires
constexpr Seconds kLeftLimit = 20s;      ///< page that was left, until it is loaded anew: the session expires
constexpr Seconds kUnclaimedLimit = 20s; ///< session whose page never connected: expires
constexpr Seconds kEndedLinger = 20s;    ///< a session's last words wait so long for the page to return
constexpr Seconds kStopDeadline = 10s;   ///< stop() waits so long for sessions inside a handler
constexpr std::size_t kOutputQueueBytes = 8u << 20; ///< operations that a stuck browser may owe: session ends
constexpr std::size_t kSessionStack = 512 * 1024; ///< of a session's thread; pages are only used when touched
constexpr std::size_t kSessions = 2000;           ///< default of --max-sessions: 503
constexpr std::size_t kAnonymousSessions = 500;   ///< default of --max-anonymous-sessions: the oldest goes
constexpr std::size_t kSessionsPerAddress = 200;  ///< default of --max-sessions-per-address: 429
constexpr std::size_t kConnections = 10000;       ///< default of --max-connections: closed
constexpr std::size_t kConnectionsPerAddress = 256; ///< default of --max-connections-per-address: closed
constexpr std::size_t kAnonymousPerAddress = 32; ///< of them, of browsers where nobody has logged in: closed

// Files
constexpr std::size_t kFileCacheBytes = 4u << 20;    ///< all cached static files with their compressed forms
constexpr std::size_t kCachedFileBytes = 512 * 1024; ///< larger files are read from the disk each time
constexpr Seconds kFileCheckPeriod = 1s;             ///< a cached file is compared with the disk this often

} // namespace Wt::Impl
