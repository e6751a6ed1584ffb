// Command line of zeqctl.
#ifndef PLATFORM_CTL_COMMANDLINE_H
#define PLATFORM_CTL_COMMANDLINE_H

#include <chrono>
#include <string>
#include <vector>

namespace zeqctl {

struct Options {
    bool json = false;
    bool help = false;
    bool version = false;
    std::string socket;
    std::chrono::milliseconds timeout;
    std::chrono::milliseconds interval{1000}; ///< between two looks of watch
    unsigned count = 0;                       ///< changes after which watch ends; 0 = never
    std::vector<std::string> words;           ///< the command and what belongs to it
};

/// Options may stand anywhere; what follows "--" is taken as words. Throws Failure with Exit::Usage.
Options parseOptions(const std::vector<std::string>& arguments);

/// The options with a line of help each, for --help and shell completion.
struct OptionRow {
    const char* name;
    const char* value; ///< null for a switch
    const char* help;
};
extern const std::vector<OptionRow> kOptions;

} // namespace zeqctl

#endif
