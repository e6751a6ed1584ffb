#include "platform/service/Service.h"
#include "platform/service/request/Describe.h"
#include "platform/service/sim/Firmware.h"

#include <cstdio>
#include <fstream>
#include <sodium.h>
#include <stdexcept>

namespace {

constexpr std::size_t kFirmwareSize = 256U << 10; ///< bytes of the payload

int makeFirmwareFile(const zeqd::Options& options) {
    const std::string file = zeqd::makeFirmware(options.firmwareType, options.firmwareVersion, kFirmwareSize);
    if (!zeqd::readFirmware(file))
        throw std::runtime_error("a firmware is for rx, tx or swx, with a short version");
    std::ofstream out(options.firmwareFile, std::ios::binary);
    out << file;
    out.close();
    if (!out) throw std::runtime_error("cannot write " + options.firmwareFile);
    return 0;
}

} // namespace

int main(int count, char** arguments) {
    using namespace zeqd;
    Options options;
    try {
        options = readOptions(count, arguments);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "zeqd: %s\n", error.what());
        return kExitUsage;
    }
    try {
        if (sodium_init() < 0) throw std::runtime_error("the cryptographic library does not start");
        switch (options.action) {
        case Options::Action::Help:
            std::fputs(helpText().c_str(), stdout);
            return 0;
        case Options::Action::Version:
            std::puts("zeqd 1.0.0, protocol 1");
            return 0;
        case Options::Action::DescribeResources:
            std::fputs(resourcesPage().c_str(), stdout);
            return 0;
        case Options::Action::MakeFirmware:
            return makeFirmwareFile(options);
        case Options::Action::Serve:
            return serve(options);
        }
    } catch (const std::exception& error) {
        std::fprintf(stderr, "zeqd: %s\n", error.what());
    }
    return kExitFailure;
}
