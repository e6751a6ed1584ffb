#pragma once

#include <Wt/WObject.h>

#include <functional>
#include <utility>

namespace Wt::Impl {

/// Tells when another object is deleted: it is a child of that. Whoever holds the pointer and no longer wants
/// to know calls release() and forgets it.
class GoneWatch : public WObject {
public:
    GoneWatch(WObject& watched, std::function<void()> gone) : mGone(std::move(gone)) {
        watched.addChild(this);
    }
    ~GoneWatch() override {
        if (mGone) mGone();
    }

    static void release(GoneWatch*& watch) {
        if (!watch) return;
        watch->mGone = nullptr;
        watch->parent()->removeChild(watch);
        delete std::exchange(watch, nullptr);
    }

private:
    std::function<void()> mGone;
};

} // namespace Wt::Impl
