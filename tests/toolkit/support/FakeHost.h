#pragma once

#include "session/SessionHost.h"

#include <atomic>
#include <semaphore>

namespace Wt::Impl {

/// A session without widgets, told what to do by its events: {"k":"echo","x":…} answers [["echo",…]]; "nest"
/// and "unnest" enter and leave a nested loop; "wait" until fakeHostGate() lets it go; "flood" with "bytes" sends that much;
/// "login" recognises the user; "throw"; "quit" finishes with [["bye"]]. Resources: "KEY" of the address decides, see FakeHost.cpp.
std::unique_ptr<SessionHost> makeFakeHost(const StartRequest& start, Mailbox& mailbox, PageSink& sink,
                                          const std::string& resourceBase);

struct FakeHostCounts {
    std::atomic<int> alive{0};
    std::atomic<int> made{0};
    std::atomic<int> unwound{0}; ///< nested loops that a session's end left
};
FakeHostCounts& fakeHostCounts();

/// Lets sessions go that wait: a release each.
std::counting_semaphore<>& fakeHostGate();

} // namespace Wt::Impl
