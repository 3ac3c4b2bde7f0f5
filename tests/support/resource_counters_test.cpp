#include "support/resource_counters.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <cstdlib>
#include <vector>

// Each counter must see a leak that is planted, and only that one.

namespace {

constexpr int planted = 10;

class ResourceCounters : public testing::Test {
  protected:
    void SetUp() override {
        for (int i = 0; i < 3; ++i)
            m_before = CountResources();
    }

    ResourceCounts m_before;
};

}  // namespace

TEST_F(ResourceCounters, StayTheSameWhenNothingHappens) {
    EXPECT_EQ(CountResources(), m_before);
}

TEST_F(ResourceCounters, SeeBlocksOfTheCRuntimesHeap) {
    void* blocks[planted];
    for (void*& block : blocks)
        block = std::malloc(123);
    const ResourceCounts after = CountResources();
    for (void* block : blocks)
        std::free(block);

    EXPECT_EQ(after.heapBlocks, m_before.heapBlocks + planted);
    EXPECT_GE(after.heapBytes, m_before.heapBytes + planted * 123);
    EXPECT_EQ(CountResources(), m_before);
}

TEST_F(ResourceCounters, SeeBlocksOfTheProcessHeap) {
    void* blocks[planted];
    for (void*& block : blocks)
        block = HeapAlloc(GetProcessHeap(), 0, 50);
    const ResourceCounts after = CountResources();
    for (void* block : blocks)
        HeapFree(GetProcessHeap(), 0, block);

    EXPECT_EQ(after.heapBlocks, m_before.heapBlocks + planted);
}

TEST_F(ResourceCounters, SeeKernelHandles) {
    HANDLE events[planted];
    for (HANDLE& event : events)
        event = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    const ResourceCounts after = CountResources();
    for (HANDLE event : events)
        CloseHandle(event);

    EXPECT_EQ(after.kernelHandles, m_before.kernelHandles + planted);
}

TEST_F(ResourceCounters, SeeRegistryKeys) {
    HKEY keys[planted];
    for (HKEY& key : keys)
        RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE", 0, KEY_READ, &key);
    const ResourceCounts after = CountResources();
    for (HKEY key : keys)
        RegCloseKey(key);

    EXPECT_EQ(after.kernelHandles, m_before.kernelHandles + planted);
}

TEST_F(ResourceCounters, SeeGdiObjects) {
    HBITMAP bitmaps[planted];
    for (HBITMAP& bitmap : bitmaps)
        bitmap = CreateBitmap(2, 2, 1, 32, nullptr);
    const ResourceCounts after = CountResources();
    for (HBITMAP bitmap : bitmaps)
        DeleteObject(bitmap);

    EXPECT_EQ(after.gdiObjects, m_before.gdiObjects + planted);
}

TEST_F(ResourceCounters, SeeUserObjects) {
    HMENU menus[planted];
    for (HMENU& menu : menus)
        menu = CreateMenu();
    const ResourceCounts after = CountResources();
    for (HMENU menu : menus)
        DestroyMenu(menu);

    EXPECT_EQ(after.userObjects, m_before.userObjects + planted);
    EXPECT_EQ(CountResources().userObjects, m_before.userObjects);
}

TEST_F(ResourceCounters, SeeThreads) {
    const HANDLE go = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    const HANDLE thread = CreateThread(
        nullptr, 0, [](void* event) -> DWORD { return WaitForSingleObject(event, INFINITE); }, go,
        0, nullptr);
    const ResourceCounts after = CountResources();
    SetEvent(go);
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
    CloseHandle(go);

    EXPECT_EQ(after.threads, m_before.threads + 1);
}

TEST_F(ResourceCounters, SeeTlsSlots) {
    const DWORD slot = TlsAlloc();
    const ResourceCounts after = CountResources();
    TlsFree(slot);

    EXPECT_EQ(after.tlsSlots, m_before.tlsSlots + 1);
}
