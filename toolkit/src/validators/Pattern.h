#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct pcre2_real_code_8;

namespace Wt::Impl {

/// A Perl-like regular expression, compiled once for the whole process. Any thread.
///
/// Matching keeps its state on the heap and within limits, so that neither a hostile text nor a hostile
/// expression can hang a session or exhaust its stack.
class Pattern {
public:
    static constexpr std::size_t kMaxPatternBytes = 32 * 1024;
    static constexpr std::size_t kMaxTextBytes = 64 * 1024; ///< a longer text does not match
    static constexpr std::uint32_t kMatchSteps = 200'000;   ///< some milliseconds
    static constexpr std::uint32_t kHeapKiB = 16 * 1024;
    static constexpr std::size_t kKept = 256; ///< compiled expressions that the process remembers

    enum class Match { No, Yes, TooCostly };

    /// Never null. `expression` is UTF-8.
    static std::shared_ptr<const Pattern> of(const std::string& expression, bool ignoreCase);

    Pattern(const std::string& expression, bool ignoreCase);
    ~Pattern();
    Pattern(const Pattern&) = delete;
    Pattern& operator=(const Pattern&) = delete;

    bool valid() const { return mCode != nullptr; } ///< an invalid one matches nothing
    Match matchesAll(std::string_view text) const;  ///< UTF-8; whether the whole text matches

private:
    pcre2_real_code_8* mCode = nullptr;
};

} // namespace Wt::Impl
