#define PCRE2_CODE_UNIT_WIDTH 8
#include "validators/Pattern.h"

#include <pcre2.h>

#include <map>
#include <mutex>

namespace Wt::Impl {

namespace {

struct MatchContext {
    MatchContext() : context(pcre2_match_context_create(nullptr)) {
        if (!context) return;
        pcre2_set_match_limit(context, Pattern::kMatchSteps);
        pcre2_set_depth_limit(context, Pattern::kMatchSteps);
        pcre2_set_heap_limit(context, Pattern::kHeapKiB);
    }
    ~MatchContext() { pcre2_match_context_free(context); }
    pcre2_match_context* context;
};

const MatchContext& matchContext() {
    static const MatchContext shared; // read only after this
    return shared;
}

} // namespace

std::shared_ptr<const Pattern> Pattern::of(const std::string& expression, bool ignoreCase) {
    static std::mutex mutex;
    static std::map<std::pair<std::string, bool>, std::shared_ptr<const Pattern>> kept;
    const std::pair key(expression, ignoreCase);
    {
        std::scoped_lock lock(mutex);
        if (auto found = kept.find(key); found != kept.end()) return found->second;
    }
    auto made = std::make_shared<const Pattern>(expression, ignoreCase);
    std::scoped_lock lock(mutex);
    if (kept.size() >= kKept)
        std::erase_if(kept, [](const auto& entry) { return entry.second.use_count() == 1; });
    if (kept.size() < kKept) kept.emplace(key, made);
    return made;
}

Pattern::Pattern(const std::string& expression, bool ignoreCase) {
    if (expression.size() > kMaxPatternBytes) return;
    int error = 0;
    PCRE2_SIZE where = 0;
    const std::uint32_t options = PCRE2_UTF | PCRE2_MATCH_INVALID_UTF | PCRE2_DOLLAR_ENDONLY |
                                  PCRE2_NEVER_BACKSLASH_C | (ignoreCase ? PCRE2_CASELESS : 0);
    mCode = pcre2_compile(reinterpret_cast<PCRE2_SPTR>(expression.data()), expression.size(), options, &error,
                          &where, nullptr);
}

Pattern::~Pattern() {
    pcre2_code_free(mCode);
}

Pattern::Match Pattern::matchesAll(std::string_view text) const {
    if (!mCode || text.size() > kMaxTextBytes) return Match::No;
    struct Data {
        pcre2_match_data* data = pcre2_match_data_create(1, nullptr);
        ~Data() { pcre2_match_data_free(data); }
    };
    // One to a call, not one to a thread: a match that needed a large heap gives it back.
    const Data match;
    if (!match.data) return Match::No;
    const int found = pcre2_match(mCode, reinterpret_cast<PCRE2_SPTR>(text.data()), text.size(), 0,
                                  PCRE2_ANCHORED | PCRE2_ENDANCHORED, match.data, matchContext().context);
    if (found >= 0) return Match::Yes;
    return found == PCRE2_ERROR_NOMATCH ? Match::No : Match::TooCostly;
}

} // namespace Wt::Impl
