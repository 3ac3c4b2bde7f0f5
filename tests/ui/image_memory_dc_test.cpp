// The memory device contexts that CImage draws from.

#include "support/canvas.h"
#include "ui/image_hooks.h"
#include "ui/pictures.h"

#include <atlimage.h>

#include <gtest/gtest.h>

#include <memory>
#include <thread>
#include <vector>

namespace {

constexpr COLORREF red = RGB(255, 0, 0);
constexpr COLORREF green = RGB(0, 255, 0);
constexpr COLORREF grey = RGB(128, 128, 128);

int g_createdDCs = 0;
int g_deletedDCs = 0;
HDC(WINAPI* g_createCompatibleDC)(HDC) = nullptr;
BOOL(WINAPI* g_deleteDC)(HDC) = nullptr;

HDC WINAPI NoteCreateCompatibleDC(HDC model) {
    ++g_createdDCs;
    return g_createCompatibleDC(model);
}
BOOL WINAPI NoteDeleteDC(HDC memoryDC) {
    ++g_deletedDCs;
    return g_deleteDC(memoryDC);
}

class ImageMemoryDCs : public testing::Test {
  protected:
    ImageMemoryDCs() {
        g_createCompatibleDC = m_createHook.Original();
        g_deleteDC = m_deleteHook.Original();
        g_createdDCs = g_deletedDCs = 0;
    }

    const ImportHook<decltype(&CreateCompatibleDC)> m_createHook{
        RuntimeDll(), nullptr, "CreateCompatibleDC", &NoteCreateCompatibleDC};
    const ImportHook<decltype(&DeleteDC)> m_deleteHook{RuntimeDll(), nullptr, "DeleteDC",
                                                       &NoteDeleteDC};
};

TEST_F(ImageMemoryDCs, OneServesDrawAfterDraw) {
    const Canvas canvas(8, 8, grey);
    auto image = std::make_unique<CImage>();
    image->LoadFromResource(OwnInstance(), IDB_PLAIN);

    for (int draw = 0; draw < 5; ++draw)
        image->Draw(canvas.Handle(), 0, 0, 8, 8, 0, 0, 32, 16);

    EXPECT_EQ(g_createdDCs, 1);
    EXPECT_EQ(g_deletedDCs, 0);
    image.reset();
    EXPECT_EQ(g_deletedDCs, 1) << "the pool ends with the last image";
}

TEST_F(ImageMemoryDCs, FourAreKept) {
    auto images = std::make_unique<CImage[]>(6);
    for (int index = 0; index < 6; ++index) {
        images[index].LoadFromResource(OwnInstance(), IDB_PLAIN);
        EXPECT_NE(images[index].GetDC(), nullptr);
    }
    EXPECT_EQ(g_createdDCs, 6);

    for (int index = 0; index < 6; ++index)
        images[index].ReleaseDC();
    EXPECT_EQ(g_deletedDCs, 2);

    images.reset();
    EXPECT_EQ(g_deletedDCs, 6);
}

TEST(ImageMemoryDC, PairsOfGetDCAndReleaseDCNest) {
    CImage image;
    image.LoadFromResource(OwnInstance(), IDB_PLAIN);

    const HDC outer = image.GetDC();
    EXPECT_EQ(image.GetDC(), outer);
    image.ReleaseDC();

    EXPECT_EQ(GetCurrentObject(outer, OBJ_BITMAP), static_cast<HBITMAP>(image));
    image.ReleaseDC();
    EXPECT_NE(GetCurrentObject(outer, OBJ_BITMAP), static_cast<HBITMAP>(image));
}

TEST(ImageMemoryDC, ThreadsShareThePoolWithoutMixingPictures) {
    std::vector<std::thread> threads;
    std::vector<int> wrong(6);
    threads.reserve(6);
    for (int number = 0; number < 6; ++number) {
        threads.emplace_back([number, &wrong] {
            const Canvas canvas(8, 8, grey);
            CImage image;
            image.LoadFromResource(OwnInstance(), IDB_PLAIN);
            const bool left = number % 2 == 0;
            for (int draw = 0; draw < 200; ++draw) {
                image.Draw(canvas.Handle(), 0, 0, 8, 8, left ? 0 : 16, 0, 16, 8);
                if (canvas.Pixel(4, 4) != (left ? red : green)) ++wrong[number];
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();

    EXPECT_EQ(wrong, std::vector<int>(6, 0));
}

}  // namespace
