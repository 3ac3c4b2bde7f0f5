// Replaces the array forms of new and delete in the whole test program.

#include "http/array_allocations.h"

#include <cstdlib>
#include <map>
#include <new>

namespace {

std::vector<long long>* g_sizes = nullptr;
std::map<void*, size_t>* g_arrays = nullptr;

void Free(void* array) {
    if (g_sizes != nullptr) {
        if (const auto known = g_arrays->find(array); known != g_arrays->end()) {
            g_sizes->push_back(-static_cast<long long>(known->second));
            g_arrays->erase(known);
        }
    }
    std::free(array);
}

}  // namespace

ArrayAllocations::ArrayAllocations() {
    g_arrays = new std::map<void*, size_t>;
    g_sizes = &m_sizes;
}

ArrayAllocations::~ArrayAllocations() {
    g_sizes = nullptr;
    delete g_arrays;
}

void* operator new[](size_t size) {
    void* array = std::malloc(size);
    if (array == nullptr) throw std::bad_alloc();
    if (g_sizes != nullptr) {
        g_sizes->push_back(static_cast<long long>(size));
        (*g_arrays)[array] = size;
    }
    return array;
}

void operator delete[](void* array) noexcept {
    Free(array);
}
void operator delete[](void* array, size_t) noexcept {
    Free(array);
}
