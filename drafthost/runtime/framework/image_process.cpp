#include "image_process.h"

#include <initializer_list>

// gdiplus.h needs windows.h and objidl.h ahead of it.
#include <objidl.h>

#include <gdiplus.h>

namespace {

/// Never deleted: image objects may outlive the statics of this DLL.
class CriticalSection {
  public:
    CriticalSection() { InitializeCriticalSection(&m_section); }
    CriticalSection(const CriticalSection&) = delete;
    CriticalSection& operator=(const CriticalSection&) = delete;

    void Enter() { EnterCriticalSection(&m_section); }
    void Leave() { LeaveCriticalSection(&m_section); }

  private:
    CRITICAL_SECTION m_section;
};

CriticalSection g_lock;
int g_imageObjects = 0;               // under g_lock
ULONG_PTR g_drawingLibraryToken = 0;  // under g_lock; 0: not started here

/// Each slot is taken and filled by one exchange, so the pool needs no lock.
void* g_memoryDCs[4] = {};

class Lock {
  public:
    Lock() { g_lock.Enter(); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    ~Lock() { g_lock.Leave(); }
};

HDC ExchangeSlot(void*& slot, HDC memoryDC) {
    return static_cast<HDC>(InterlockedExchangePointer(&slot, memoryDC));
}

}  // namespace

void AddImageObject() {
    const Lock lock;
    ++g_imageObjects;
}

void RemoveImageObject() {
    const Lock lock;
    if (--g_imageObjects > 0) return;
    if (g_drawingLibraryToken != 0) Gdiplus::GdiplusShutdown(g_drawingLibraryToken);
    g_drawingLibraryToken = 0;
    for (void*& slot : g_memoryDCs) {
        if (HDC memoryDC = ExchangeSlot(slot, nullptr)) DeleteDC(memoryDC);
    }
}

bool StartDrawingLibrary() {
    const Lock lock;
    if (g_drawingLibraryToken != 0) return true;
    const Gdiplus::GdiplusStartupInput input;  // Version 1, no debug callback.
    ULONG_PTR token = 0;
    if (Gdiplus::GdiplusStartup(&token, &input, nullptr) != Gdiplus::Ok) return false;
    g_drawingLibraryToken = token;
    return true;
}

HDC TakeMemoryDC() {
    for (void*& slot : g_memoryDCs) {
        if (HDC memoryDC = ExchangeSlot(slot, nullptr)) return memoryDC;
    }
    return CreateCompatibleDC(nullptr);
}

void GiveMemoryDC(HDC memoryDC) {
    for (void*& slot : g_memoryDCs) {
        memoryDC = ExchangeSlot(slot, memoryDC);
        if (memoryDC == nullptr) return;
    }
    DeleteDC(memoryDC);
}
