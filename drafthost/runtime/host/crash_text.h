#pragma once

#include <cstddef>
#include <cstdint>

namespace drafthost {

/// Writes what a hardware exception is, such as "access violation writing 0x0000000000000010
/// (0xC0000005)". `text` gets at most `capacity` characters, the
/// terminator among them. Needs no heap.
void DescribeException(unsigned long code, unsigned long parameterCount,
                       const std::uintptr_t* parameters, wchar_t* text, std::size_t capacity);

/// Whether the code is that of a C++ exception of gcc or MSVC.
bool IsCppException(unsigned long code);

/// Whether the code's severity is that of an error, C++ exceptions aside: what no program of ours
/// raises and handles on purpose.
bool IsFatal(unsigned long code);

}  // namespace drafthost
