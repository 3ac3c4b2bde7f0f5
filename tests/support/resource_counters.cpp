#include "support/resource_counters.h"

#include <windows.h>
// Needs windows.h ahead of them.
#include <tlhelp32.h>
#include <winternl.h>

#include <algorithm>
#include <iterator>
#include <ostream>
#include <stdexcept>
#include <vector>

namespace {

constexpr long long ResourceCounts::*allCounters[] = {
    &ResourceCounts::heapBlocks, &ResourceCounts::heapBytes,   &ResourceCounts::kernelHandles,
    &ResourceCounts::gdiObjects, &ResourceCounts::userObjects, &ResourceCounts::threads,
    &ResourceCounts::tlsSlots};

void CountHeap(ResourceCounts& counts) {
    HANDLE heaps[256];
    const DWORD heapCount = GetProcessHeaps(256, heaps);
    if (heapCount == 0 || heapCount > 256) throw std::runtime_error("GetProcessHeaps");
    for (DWORD i = 0; i < heapCount; ++i) {
        PROCESS_HEAP_ENTRY entry = {};
        HeapLock(heaps[i]);
        while (HeapWalk(heaps[i], &entry)) {
            if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) == 0) continue;
            ++counts.heapBlocks;
            counts.heapBytes += static_cast<long long>(entry.cbData);
        }
        HeapUnlock(heaps[i]);
    }
}

// The system-wide list of handles, class 64 of NtQuerySystemInformation; the layout is documented
// by use only, not in the platform's headers.
struct HandleEntry {
    void* object;
    ULONG_PTR processId;
    ULONG_PTR handle;
    ULONG access;
    USHORT backTrace;
    USHORT type;
    ULONG attributes;
    ULONG reserved;
};
struct HandleList {
    ULONG_PTR count;
    ULONG_PTR reserved;
    HandleEntry entries[1];
};

long long CountKernelHandles() {
    constexpr auto extendedHandleInformation = static_cast<SYSTEM_INFORMATION_CLASS>(64);
    static std::vector<char> buffer(4 << 20);  // Kept, so that counting doesn't change the heap.
    ULONG needed = 0;
    while (NtQuerySystemInformation(extendedHandleInformation, buffer.data(),
                                    static_cast<ULONG>(buffer.size()), &needed) < 0) {
        if (buffer.size() > (256u << 20)) throw std::runtime_error("NtQuerySystemInformation");
        buffer.resize(buffer.size() * 2);
    }
    const auto* list = reinterpret_cast<const HandleList*>(buffer.data());
    long long count = 0;
    for (ULONG_PTR i = 0; i < list->count; ++i) {
        if (list->entries[i].processId == GetCurrentProcessId()) ++count;
    }
    return count;
}

// The table of all GDI handles that every process has mapped: PEB offset 0xF8, 65,536 entries of
// 24 bytes, the object's type in byte 14, 0 for a free entry.
long long CountGdiObjects() {
    constexpr size_t tableOffset = 0xF8;
    constexpr size_t entryCount = 65536;
    constexpr size_t entrySize = 24;
    constexpr size_t typeOffset = 14;
    constexpr BYTE deviceContextType = 1;

    GdiFlush();
    PROCESS_BASIC_INFORMATION process = {};
    NtQueryInformationProcess(GetCurrentProcess(), ProcessBasicInformation, &process,
                              sizeof process, nullptr);
    const auto* peb = reinterpret_cast<const BYTE*>(process.PebBaseAddress);
    const BYTE* table = *reinterpret_cast<BYTE* const*>(peb + tableOffset);
    if (table == nullptr) return 0;
    long long count = 0;
    for (size_t i = 0; i < entryCount; ++i) {
        const BYTE type = table[i * entrySize + typeOffset] & 0x1F;
        if (type != 0 && type != deviceContextType) ++count;
    }
    return count;
}

// USER handles have no public counter here. The table behind them serves all processes, gives out
// free slots before new ones, and a handle's low word tells its slot: so menus are made until one
// gets a slot that was never seen; by then no slot is free, and those that the menus don't hold are
// in use. Programs that read this counter must run alone.
long long CountUserObjects() {
    constexpr size_t reserve =
        500;  // Slots that the first count adds, for later ones to find free.
    constexpr size_t limit = 8000;
    static std::vector<HMENU> menus(limit);  // Kept, so that counting doesn't change the heap.
    static size_t highestSlot = 0;

    const bool first = highestSlot == 0;
    size_t made = 0;
    size_t highest = 0;
    while (made < limit && (first ? made < reserve : highest <= highestSlot)) {
        menus[made] = CreateMenu();
        highest = std::max(highest, (reinterpret_cast<ULONG_PTR>(menus[made]) & 0xFFFF) / 2);
        ++made;
    }
    for (size_t i = 0; i < made; ++i)
        DestroyMenu(menus[i]);
    if (made == limit) throw std::runtime_error("too many USER objects to count");
    highestSlot = highest;
    return static_cast<long long>(highest - made);
}

long long CountThreads() {
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    THREADENTRY32 entry = {};
    entry.dwSize = sizeof entry;
    long long count = 0;
    for (BOOL more = Thread32First(snapshot, &entry); more; more = Thread32Next(snapshot, &entry)) {
        if (entry.th32OwnerProcessID == GetCurrentProcessId()) ++count;
    }
    CloseHandle(snapshot);
    return count;
}

long long CountTlsSlots() {
    constexpr size_t slotLimit = 64 + 1024;  // TLS_MINIMUM_AVAILABLE and the expansion slots.
    DWORD taken[slotLimit];
    size_t available = 0;
    while (available < slotLimit) {
        const DWORD slot = TlsAlloc();
        if (slot == TLS_OUT_OF_INDEXES) break;
        taken[available++] = slot;
    }
    for (size_t i = 0; i < available; ++i)
        TlsFree(taken[i]);
    return static_cast<long long>(slotLimit - available);
}

}  // namespace

bool ResourceCounts::operator==(const ResourceCounts& other) const {
    return std::all_of(std::begin(allCounters), std::end(allCounters),
                       [&](const auto counter) { return this->*counter == other.*counter; });
}

ResourceCounts ResourceCounts::operator-(const ResourceCounts& earlier) const {
    ResourceCounts difference;
    for (const auto counter : allCounters)
        difference.*counter = this->*counter - earlier.*counter;
    return difference;
}

ResourceCounts ResourceCounts::operator*(int rounds) const {
    ResourceCounts product;
    for (const auto counter : allCounters)
        product.*counter = this->*counter * rounds;
    return product;
}

std::ostream& operator<<(std::ostream& stream, const ResourceCounts& counts) {
    return stream << "heap blocks " << counts.heapBlocks << ", heap bytes " << counts.heapBytes
                  << ", kernel handles " << counts.kernelHandles << ", GDI " << counts.gdiObjects
                  << ", USER " << counts.userObjects << ", threads " << counts.threads
                  << ", TLS slots " << counts.tlsSlots;
}

ResourceCounts CountResources() {
    ResourceCounts counts;
    // What allocates on first use goes ahead of the heap count.
    counts.kernelHandles = CountKernelHandles();
    counts.gdiObjects = CountGdiObjects();
    counts.userObjects = CountUserObjects();
    counts.threads = CountThreads();
    counts.tlsSlots = CountTlsSlots();
    CountHeap(counts);
    return counts;
}
