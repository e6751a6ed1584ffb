#include "frame/PngFile.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>

namespace {

constexpr std::uintmax_t kMaxBytes = 10U << 20;
constexpr std::array<unsigned char, 24> kBegin = {
    0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n', // signature
    0,    0,   0,   13,  'I',  'H',  'D',  'R',  // length and type
    0,    0,   0,   24,  0,    0,    0,    24};  // width and height

} // namespace

int MirlUtil_validate24x24PngFile(const std::string& path) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (error) return PNG_BAD;
    if (size > kMaxBytes) return PNG_TOO_LARGE;
    std::array<unsigned char, kBegin.size()> begin{};
    std::ifstream file(path, std::ios::binary);
    if (!file.read(reinterpret_cast<char*>(begin.data()), begin.size())) return PNG_BAD;
    return begin == kBegin ? PNG_GOOD : PNG_BAD;
}
