#include "runtime/lisp/stack_limit.h"

#include <windows.h>

#include <algorithm>

namespace drafthost {

namespace {

constexpr std::uintptr_t keptFree = 0x40000;

}  // namespace

void StackLimit::Measure() {
    MEMORY_BASIC_INFORMATION here = {};
    VirtualQuery(&here, &here, sizeof here);
    const auto lowest = reinterpret_cast<std::uintptr_t>(here.AllocationBase);
    const auto current = reinterpret_cast<std::uintptr_t>(&here);
    const std::uintptr_t free = std::min(keptFree, (current - lowest) / 2);
    m_limit = lowest + free;
    m_extendedLimit = lowest + free / 2;
}

bool StackLimit::IsReached() const {
    const volatile char here = 0;
    return reinterpret_cast<std::uintptr_t>(&here) < m_limit;
}

}  // namespace drafthost
