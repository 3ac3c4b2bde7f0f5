#include "support/allocation_count.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <stdexcept>
#include <string>

namespace {

long g_count = 0;
void* (*g_allocate)(size_t) = nullptr;

void* CountingAllocate(size_t size) {
    ++g_count;
    return g_allocate(size);
}

}  // namespace

AllocationCount::AllocationCount()
    : m_program("msvcrt.dll", "malloc", &CountingAllocate),
      m_runtime(GetModuleHandleW(L"libstdc++-6.dll"), "msvcrt.dll", "malloc", &CountingAllocate) {
    g_allocate = m_runtime.Original();
    g_count = 0;
    const std::string planted(100, 'x');
    const auto block = std::make_unique<std::string>(planted);
    benchmark::DoNotOptimize(block.get());
    if (g_count != 3) throw std::runtime_error("allocations are not counted");
    g_count = 0;
}

double AllocationCount::Count() const {
    return static_cast<double>(g_count);
}
