#include "widgets/Interned.h"

#include <mutex>
#include <unordered_set>

namespace Wt::Impl {

const std::string* interned(const std::string& text) {
    static std::mutex mutex;
    static std::unordered_set<std::string> texts; // elements keep their address
    if (text.empty()) return nullptr;
    const std::lock_guard lock(mutex);
    return &*texts.insert(text).first;
}

} // namespace Wt::Impl
