// The commands, one row each.
#ifndef PLATFORM_CTL_COMMAND_H
#define PLATFORM_CTL_COMMAND_H

#include "platform/ctl/CommandLine.h"
#include "platform/ctl/RemoteService.h"

#include <istream>
#include <ostream>
#include <span>
#include <string>
#include <vector>

namespace zeqctl {

struct Context {
    RemoteService& service;
    const Options& options;
    std::vector<std::string> words; ///< what follows the command's name
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
};

struct CommandRow {
    const char* name;
    const char* synopsis;
    const char* summary;
    const char* details; ///< taught by --help after the command
    /// What the words after the name are, for completion: r resource, k keys, a assignments,
    /// or the words themselves.
    const char* completes;
    void (*run)(Context& context);
};

std::span<const CommandRow> commands();
/// Null when there is none of this name.
const CommandRow* findCommand(const std::string& name);

void runGet(Context& context);
void runList(Context& context);
void runSet(Context& context);
void runCreate(Context& context);
void runDelete(Context& context);
void runWatch(Context& context);
void runDescribe(Context& context);
void runDevice(Context& context);
void runLogin(Context& context);
void runLogout(Context& context);
void runCascade(Context& context);
void runManager(Context& context);
void runAlert(Context& context);
void runTime(Context& context);
void runHelp(Context& context);
void runCompletion(Context& context);
/// Prints the words that may stand in place of the first word, which is being typed, when the others are
/// before it; one a line, for the completion script.
void runComplete(Context& context);

/// Runs zeqctl with the arguments behind its name; the exit code.
int run(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out, std::ostream& err);

} // namespace zeqctl

#endif
