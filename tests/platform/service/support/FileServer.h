// A server of one file, a process of its own: fileserver.py beside this file tells what it serves.
#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace zeqd::testing {

class FileServer {
public:
    static constexpr const char* kFile = "dir/f.fw";
    static constexpr const char* kUser = "me";
    static constexpr const char* kPassword = "s3cret";

    /// `more`: for https, the files of certificate and key.
    FileServer(const std::string& protocol, const std::string& fault, std::size_t size,
               const std::vector<std::string>& more = {});
    ~FileServer();
    FileServer(const FileServer&) = delete;
    FileServer& operator=(const FileServer&) = delete;

    std::string place() const { return "127.0.0.1:" + std::to_string(mPort); }
    /// Waits for the next line that the server says, and answers it; empty when the server has ended.
    std::string nextLine() const;

private:
    pid_t mPid = 0;
    int mOutput = -1;
    int mPort = 0;
};

} // namespace zeqd::testing
