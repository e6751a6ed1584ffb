#include "platform/ctl/Command.h"

#include <csignal>
#include <iostream>

int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_DFL); // zeqctl list rx | head ends quietly
    std::ios::sync_with_stdio(false);
    return zeqctl::run({argv + (argc > 0 ? 1 : 0), argv + argc}, std::cin, std::cout, std::cerr);
}
