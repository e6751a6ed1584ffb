// Limits and deadlines of the socket.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>

namespace zeqd {

constexpr std::uint32_t kMaxRequest = 1U << 20;    ///< bytes of a request's JSON
constexpr std::size_t kFrameHeader = 4;            ///< bytes of a frame's length, big-endian
constexpr std::size_t kReadChunk = 64U << 10;      ///< bytes taken from a client in one go
constexpr std::chrono::seconds kFrameDeadline{30}; ///< for the rest of a frame that has begun
constexpr std::chrono::seconds kWriteDeadline{60}; ///< for a client to take some of its answer
constexpr std::size_t kLeastRate = 64U << 10;      ///< bytes a second that a client takes of its answer
constexpr std::chrono::seconds kStopDeadline{5};   ///< at a stop, for clients to take their answers
constexpr std::size_t kOutputBudget =
    256U << 20; ///< bytes of answers that clients have not taken yet, all together
constexpr std::size_t kDefaultClients = 1024; ///< every logged-in session of the interface holds one

} // namespace zeqd
