#pragma once

#include "support/import_hook.h"

/// Counts the allocations that this program and the C++ runtime's DLL make, for the life of this
/// object; one at a time. Throws std::runtime_error when it misses a planted one.
class AllocationCount {
  public:
    AllocationCount();
    AllocationCount(const AllocationCount&) = delete;
    AllocationCount& operator=(const AllocationCount&) = delete;

    /// Since the construction.
    double Count() const;

  private:
    using Allocate = void* (*)(size_t);

    ImportHook<Allocate> m_program;
    ImportHook<Allocate> m_runtime;  // There `operator new` and long strings are.
};
