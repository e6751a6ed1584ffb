#pragma once

#include <boost/any.hpp>

namespace Wt {
namespace Impl {
class ResourceAnswer;
}

namespace Http {

/// What a resource remembers between two pieces of one answer.
class ResponseContinuation {
public:
    void setData(const boost::any& data) { mData = data; }
    const boost::any& data() const { return mData; }
    /// The next piece waits for haveMoreData().
    void waitForMoreData() { mWaiting = true; }
    bool isWaitingForMoreData() const { return mWaiting; }
    void haveMoreData() { mWaiting = false; }

private:
    friend class Impl::ResourceAnswer;

    boost::any mData;
    bool mWaiting = false;
};

} // namespace Http
} // namespace Wt
