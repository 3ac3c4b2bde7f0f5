#pragma once

#include <cstdint>
#include <optional>

namespace drafthost {

/// The library generation that this host is of; a module of another one is refused.
constexpr std::uint32_t hostGeneration = 17;

/// The generation in the upper 16 bits of what `acrxGetApiVersion` gives.
constexpr std::uint32_t GenerationOf(std::uint32_t apiVersion) {
    return apiVersion >> 16;
}

/// The value in a routine's fixed head: a short jump over four bytes that hold it, the lowest byte
/// first. `code` is readable for 6 bytes. Empty when the routine begins otherwise, as an ordinary
/// function does.
std::optional<std::uint32_t> ApiVersionInHead(const unsigned char* code);

}  // namespace drafthost
