// How much work a piece of the service makes: records looked up and looked at.
#pragma once

#include "platform/service/store/View.h"

namespace zeqd::testing {

class CountingView : public View {
public:
    explicit CountingView(const View& base) : mBase(base) {}
    RecordPtr find(Res id, std::uint32_t index) const override { return ++finds, mBase.find(id, index); }
    void eachFrom(Res id, std::uint32_t from,
                  const std::function<bool(const RecordPtr&)>& visit) const override {
        mBase.eachFrom(id, from, [&](const RecordPtr& record) { return ++seen, visit(record); });
    }
    std::uint32_t nextIndex(Res id) const override { return mBase.nextIndex(id); }
    std::size_t count(Res id) const override { return mBase.count(id); }
    mutable std::size_t finds = 0, seen = 0;

private:
    const View& mBase;
};

} // namespace zeqd::testing
