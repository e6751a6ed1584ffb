#pragma once

#include "session/PageSink.h"

#include <string>
#include <vector>

namespace Wt::Impl {

/// Keeps the page operations of a session without a browser, for tests that look at what would be sent.
class RecordingSink : public PageSink {
public:
    void send(std::string operations) override { mSent.push_back(std::move(operations)); }
    void finish(std::string operations) override {
        if (!operations.empty()) mSent.push_back(std::move(operations));
    }

    /// Everything since the last call, one JSON array a flush.
    std::vector<std::string> take() {
        std::vector<std::string> taken;
        taken.swap(mSent);
        return taken;
    }

private:
    std::vector<std::string> mSent;
};

} // namespace Wt::Impl
