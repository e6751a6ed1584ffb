// How a command ends. The numbers are zeqctl's exit codes and part of its manual page.
#ifndef PLATFORM_CTL_FAILURE_H
#define PLATFORM_CTL_FAILURE_H

#include <stdexcept>
#include <string>

namespace zeqctl {

enum class Exit : int { Done = 0, Refused = 1, Usage = 2, NoService = 3, NoOutput = 4 };

/// Thrown by commands; its text is for the user.
class Failure : public std::runtime_error {
public:
    Failure(Exit code, const std::string& text) : std::runtime_error(text), mCode(code) {}
    Exit code() const { return mCode; }

private:
    Exit mCode;
};

} // namespace zeqctl

#endif
