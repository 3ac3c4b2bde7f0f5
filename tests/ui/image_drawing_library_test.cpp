// GDI+ comes and goes with the images.

#include "ui/image_hooks.h"
#include "ui/picture_files.h"

#include <atlimage.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <memory>

// gdiplus.h needs windows.h and objidl.h ahead of it.
#include <objidl.h>

#include <gdiplus.h>

using Gdiplus::GpStatus;

namespace {

int g_startups = 0;
int g_shutdowns = 0;
Gdiplus::GdiplusStartupInput g_startupInput;
decltype(&Gdiplus::GdiplusStartup) g_startup = nullptr;
decltype(&Gdiplus::GdiplusShutdown) g_shutdown = nullptr;

int g_lockDepth = 0;
int g_lockUses = 0;
bool g_startedUnderLock = false;
bool g_endedUnderLock = false;
decltype(&EnterCriticalSection) g_enter = nullptr;
decltype(&LeaveCriticalSection) g_leave = nullptr;

void WINAPI NoteEnter(CRITICAL_SECTION* section) {
    ++g_lockDepth;
    ++g_lockUses;
    g_enter(section);
}
void WINAPI NoteLeave(CRITICAL_SECTION* section) {
    --g_lockDepth;
    g_leave(section);
}
GpStatus WINAPI NoteStartup(ULONG_PTR* token, const Gdiplus::GdiplusStartupInput* input,
                            Gdiplus::GdiplusStartupOutput* output) {
    ++g_startups;
    g_startedUnderLock = g_lockDepth > 0;
    g_startupInput = *input;
    return g_startup(token, input, output);
}
void WINAPI NoteShutdown(ULONG_PTR token) {
    ++g_shutdowns;
    g_endedUnderLock = g_lockDepth > 0;
    g_shutdown(token);
}
GpStatus WINAPI RefuseStartup(ULONG_PTR*, const Gdiplus::GdiplusStartupInput*,
                              Gdiplus::GdiplusStartupOutput*) {
    return Gdiplus::GenericError;
}

class ImageDrawingLibrary : public testing::Test {
  protected:
    ImageDrawingLibrary() {
        g_startup = m_startupHook.Original();
        g_shutdown = m_shutdownHook.Original();
        g_startups = g_shutdowns = 0;
    }

    const TempFolder m_folder;
    const std::wstring m_file = WritePicture(m_folder, L"plain.png", IDR_PNG);
    const ImportHook<decltype(&Gdiplus::GdiplusStartup)> m_startupHook{
        RuntimeDll(), nullptr, "GdiplusStartup", &NoteStartup};
    const ImportHook<decltype(&Gdiplus::GdiplusShutdown)> m_shutdownHook{
        RuntimeDll(), nullptr, "GdiplusShutdown", &NoteShutdown};
};

TEST_F(ImageDrawingLibrary, StartsOnceAtTheFirstFile) {
    CImage first;
    CImage second;
    EXPECT_EQ(g_startups, 0);

    first.Load(m_file.c_str());
    first.Load(m_file.c_str());
    second.Load(m_file.c_str());

    EXPECT_EQ(g_startups, 1);
    EXPECT_EQ(g_startupInput.GdiplusVersion, 1u);
    EXPECT_EQ(g_startupInput.DebugEventCallback, nullptr);
}

TEST_F(ImageDrawingLibrary, EndsWithTheLastImageEvenIfThatNeverLoaded) {
    auto loaded = std::make_unique<CImage>();
    auto empty = std::make_unique<CImage>();
    loaded->Load(m_file.c_str());

    loaded.reset();
    EXPECT_EQ(g_shutdowns, 0);
    empty.reset();

    EXPECT_EQ(g_shutdowns, 1);
}

TEST_F(ImageDrawingLibrary, StartsAgainAfterItsEnd) {
    for (int round = 1; round <= 3; ++round) {
        CImage image;
        EXPECT_EQ(image.Load(m_file.c_str()), S_OK);
        EXPECT_EQ(g_startups, round);
        EXPECT_EQ(g_shutdowns, round - 1);
    }
    EXPECT_EQ(g_shutdowns, 3);
}

TEST_F(ImageDrawingLibrary, CountStartAndEndAreUnderTheCriticalSection) {
    const ImportHook<decltype(&EnterCriticalSection)> enter(RuntimeDll(), nullptr,
                                                            "EnterCriticalSection", &NoteEnter);
    const ImportHook<decltype(&LeaveCriticalSection)> leave(RuntimeDll(), nullptr,
                                                            "LeaveCriticalSection", &NoteLeave);
    g_enter = enter.Original();
    g_leave = leave.Original();
    g_lockDepth = g_lockUses = 0;
    auto image = std::make_unique<CImage>();
    EXPECT_EQ(g_lockUses, 1);

    image->Load(m_file.c_str());
    EXPECT_EQ(g_lockUses, 2);
    image.reset();

    EXPECT_EQ(g_lockUses, 3);
    EXPECT_EQ(g_lockDepth, 0);
    EXPECT_TRUE(g_startedUnderLock);
    EXPECT_TRUE(g_endedUnderLock);
}

TEST_F(ImageDrawingLibrary, IsNotNeededForAResource) {
    {
        CImage image;
        image.LoadFromResource(GetModuleHandleW(nullptr), IDB_PLAIN);
    }

    EXPECT_EQ(g_startups, 0);
    EXPECT_EQ(g_shutdowns, 0);
}

TEST_F(ImageDrawingLibrary, ARefusedStartFailsTheLoadAndIsTriedAgain) {
    CImage image;
    {
        const ImportHook<decltype(&Gdiplus::GdiplusStartup)> refusal(
            RuntimeDll(), nullptr, "GdiplusStartup", &RefuseStartup);
        EXPECT_EQ(image.Load(m_file.c_str()), static_cast<HRESULT>(0x80004005));
        EXPECT_TRUE(image.IsNull());
    }

    EXPECT_EQ(image.Load(m_file.c_str()), S_OK);
    EXPECT_EQ(g_startups, 1);
}

TEST_F(ImageDrawingLibrary, AnEndWithoutAStartIsNone) {
    {
        const ImportHook<decltype(&Gdiplus::GdiplusStartup)> refusal(
            RuntimeDll(), nullptr, "GdiplusStartup", &RefuseStartup);
        CImage image;
        image.Load(m_file.c_str());
    }

    EXPECT_EQ(g_shutdowns, 0);
}

}  // namespace
