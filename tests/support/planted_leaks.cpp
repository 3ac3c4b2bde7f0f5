#include "support/planted_leaks.h"

#include <windows.h>

#include <cstdlib>
#include <memory>
#include <stdexcept>

namespace {

constexpr size_t blockSize = 123;
constexpr size_t mostPlanted = 1000;

ResourceCounts OneMore(long long ResourceCounts::*counter) {
    ResourceCounts counts;
    counts.*counter = 1;
    return counts;
}

ResourceCounts OneMoreBlock() {
    ResourceCounts counts = OneMore(&ResourceCounts::heapBlocks);
    counts.heapBytes = blockSize;
    return counts;
}

/// The thread and the handle by which it is ended.
ResourceCounts OneMoreThread() {
    ResourceCounts counts = OneMore(&ResourceCounts::threads);
    counts.kernelHandles = 1;
    return counts;
}

template <typename Item, typename Make, typename Release>
PlantedLeak Kind(const char* name, const ResourceCounts& shows, Make make, Release release) {
    const auto planted = std::make_shared<std::vector<Item>>();
    planted->reserve(mostPlanted);  // Ahead, so that planting itself leaves the heap as it is.
    return {name, shows, [planted, make] { planted->push_back(make()); },
            [planted, release] {
                for (const Item& item : *planted)
                    release(item);
                planted->clear();
            }};
}

/// One block, which each planting makes longer.
PlantedLeak ByteMore() {
    const HANDLE heap = GetProcessHeap();
    const std::shared_ptr<void*> block(new void*(HeapAlloc(heap, 0, blockSize)),
                                       [heap](void** stored) {
                                           HeapFree(heap, 0, *stored);
                                           delete stored;
                                       });
    const auto resize = [heap, block](size_t size) {
        void* const resized = HeapReAlloc(heap, 0, *block, size);
        if (resized == nullptr) throw std::runtime_error("HeapReAlloc");
        *block = resized;
    };
    return {"ByteMore", OneMore(&ResourceCounts::heapBytes),
            [heap, block, resize] { resize(HeapSize(heap, 0, *block) + 1); },
            [resize] { resize(blockSize); }};
}

HKEY OpenKey() {
    HKEY key = nullptr;
    RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE", 0, KEY_READ, &key);
    return key;
}

DWORD WINAPI EndAtOnce(void*) {
    return 0;
}

/// One that never ran has nothing of its own on the heap yet.
HANDLE MakeSuspendedThread() {
    return CreateThread(nullptr, 0, EndAtOnce, nullptr, CREATE_SUSPENDED, nullptr);
}

void EndThread(HANDLE thread) {
    ResumeThread(thread);
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
}

}  // namespace

std::vector<PlantedLeak> PlantedLeaks() {
    return {
        Kind<void*>(
            "BlockOfTheCRuntime", OneMoreBlock(), [] { return std::malloc(blockSize); }, std::free),
        Kind<void*>(
            "BlockOfTheProcessHeap", OneMoreBlock(),
            [] { return HeapAlloc(GetProcessHeap(), 0, blockSize); },
            [](void* block) { HeapFree(GetProcessHeap(), 0, block); }),
        ByteMore(),
        Kind<HANDLE>(
            "Event", OneMore(&ResourceCounts::kernelHandles),
            [] { return CreateEventW(nullptr, FALSE, FALSE, nullptr); }, CloseHandle),
        Kind<HKEY>("RegistryKey", OneMore(&ResourceCounts::kernelHandles), OpenKey, RegCloseKey),
        Kind<HBITMAP>(
            "Bitmap", OneMore(&ResourceCounts::gdiObjects),
            [] { return CreateBitmap(2, 2, 1, 32, nullptr); }, DeleteObject),
        Kind<HMENU>("Menu", OneMore(&ResourceCounts::userObjects), CreateMenu, DestroyMenu),
        Kind<HANDLE>("Thread", OneMoreThread(), MakeSuspendedThread, EndThread),
        Kind<DWORD>("TlsSlot", OneMore(&ResourceCounts::tlsSlots), TlsAlloc, TlsFree),
    };
}
