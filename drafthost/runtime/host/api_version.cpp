#include "runtime/host/api_version.h"

namespace drafthost {

std::optional<std::uint32_t> ApiVersionInHead(const unsigned char* code) {
    if (code[0] != 0xEB || code[1] != 0x04) return {};
    return static_cast<std::uint32_t>(code[2]) | static_cast<std::uint32_t>(code[3]) << 8 |
           static_cast<std::uint32_t>(code[4]) << 16 | static_cast<std::uint32_t>(code[5]) << 24;
}

}  // namespace drafthost
