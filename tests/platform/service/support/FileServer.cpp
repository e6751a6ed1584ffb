#include "tests/platform/service/support/FileServer.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace zeqd::testing {

namespace {

[[noreturn]] void becomeServer(const std::vector<std::string>& arguments, int out) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL); // a crashed test leaves nothing behind
    ::dup2(out, STDOUT_FILENO);
    std::vector<char*> argv;
    for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    ::execvp(argv[0], argv.data());
    ::_exit(127);
}

} // namespace

FileServer::FileServer(const std::string& protocol, const std::string& fault, std::size_t size,
                       const std::vector<std::string>& more) {
    std::vector<std::string> arguments = {"python3",
                                          MIRL_SOURCE_DIR "/tests/platform/service/support/fileserver.py",
                                          protocol, fault, std::to_string(size)};
    arguments.insert(arguments.end(), more.begin(), more.end());
    int ends[2];
    if (::pipe(ends) != 0) throw std::system_error(errno, std::generic_category(), "pipe");
    mPid = ::fork();
    if (mPid == 0) becomeServer(arguments, ends[1]);
    ::close(ends[1]);
    mOutput = ends[0];
    mPort = std::atoi(nextLine().c_str());
    if (mPort == 0) throw std::runtime_error("fileserver.py does not serve");
}

FileServer::~FileServer() {
    ::kill(mPid, SIGKILL);
    ::waitpid(mPid, nullptr, 0);
    ::close(mOutput);
}

std::string FileServer::nextLine() const {
    std::string line;
    for (char c; ::read(mOutput, &c, 1) == 1 && c != '\n';) line += c;
    return line;
}

} // namespace zeqd::testing
