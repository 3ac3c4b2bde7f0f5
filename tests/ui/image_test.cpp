// CImage from its beginning over a resource to its end.

#include "support/canvas.h"
#include "ui/image_hooks.h"
#include "ui/pictures.h"

#include <atlimage.h>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace {

constexpr COLORREF red = RGB(255, 0, 0);
constexpr COLORREF blue = RGB(0, 0, 255);
constexpr COLORREF grey = RGB(128, 128, 128);

TEST(Image, ANewOneIsEmptyAndDrawsNothing) {
    const Canvas canvas(8, 8, grey);
    CImage image;

    EXPECT_TRUE(image.IsNull());
    EXPECT_EQ(image.GetWidth(), 0);
    EXPECT_EQ(image.GetHeight(), 0);
    EXPECT_EQ(image.GetBits(), nullptr);
    EXPECT_FALSE(image.Draw(canvas.Handle(), 0, 0, 8, 8, 0, 0, 0, 0));
    EXPECT_EQ(canvas.Pixel(4, 4), grey);
}

struct LoadImageCall {
    HINSTANCE instance;
    LPCWSTR name;
    UINT type;
    int width;
    int height;
    UINT flags;
};
LoadImageCall g_loadImageCall = {};
HANDLE(WINAPI* g_loadImage)(HINSTANCE, LPCWSTR, UINT, int, int, UINT) = nullptr;

HANDLE WINAPI NoteLoadImage(HINSTANCE instance, LPCWSTR name, UINT type, int width, int height,
                            UINT flags) {
    g_loadImageCall = {instance, name, type, width, height, flags};
    return g_loadImage(instance, name, type, width, height, flags);
}

TEST(Image, AResourceIsLoadedAtItsOwnSizeAsASection) {
    const ImportHook<decltype(&LoadImageW)> hook(RuntimeDll(), nullptr, "LoadImageW",
                                                 &NoteLoadImage);
    g_loadImage = hook.Original();
    CImage image;

    image.LoadFromResource(OwnInstance(), IDB_PLAIN);

    EXPECT_EQ(g_loadImageCall.instance, OwnInstance());
    EXPECT_EQ(g_loadImageCall.name, MAKEINTRESOURCEW(IDB_PLAIN));
    EXPECT_EQ(g_loadImageCall.type, static_cast<UINT>(IMAGE_BITMAP));
    EXPECT_EQ(g_loadImageCall.width, 0);
    EXPECT_EQ(g_loadImageCall.height, 0);
    EXPECT_EQ(g_loadImageCall.flags, 8192u);
    EXPECT_EQ(image.GetWidth(), 32);
    EXPECT_EQ(image.GetHeight(), 16);
    EXPECT_EQ(image.GetBPP(), 24);
}

TEST(Image, RowsOfAResourceGoUpwardsInMemory) {
    CImage image;

    image.LoadFromResource(OwnInstance(), IDB_PLAIN);

    EXPECT_EQ(image.GetPitch(), -96);
    const auto* top = static_cast<const BYTE*>(image.GetBits());
    EXPECT_EQ(RGB(top[2], top[1], top[0]), red);
    const BYTE* bottom = top + 15 * image.GetPitch();
    EXPECT_EQ(RGB(bottom[2], bottom[1], bottom[0]), blue);
}

TEST(Image, AResourceThatIsMissingLeavesThePictureInHand) {
    CImage image;
    image.LoadFromResource(OwnInstance(), IDB_PLAIN);
    const HBITMAP before = image;

    image.LoadFromResource(OwnInstance(), 999);

    EXPECT_EQ(static_cast<HBITMAP>(image), before);
    EXPECT_EQ(image.GetWidth(), 32);
}

std::vector<HGDIOBJ> g_deletedObjects;
BOOL(WINAPI* g_deleteObject)(HGDIOBJ) = nullptr;

BOOL WINAPI NoteDeleteObject(HGDIOBJ object) {
    g_deletedObjects.push_back(object);
    return g_deleteObject(object);
}

/// Notes what images delete.
class ImageEnd : public testing::Test {
  protected:
    ImageEnd() {
        g_deleteObject = m_deletion.Original();
        g_deletedObjects.clear();
    }

    const ImportHook<decltype(&DeleteObject)> m_deletion{RuntimeDll(), nullptr, "DeleteObject",
                                                         &NoteDeleteObject};
};

TEST_F(ImageEnd, OnlyTheLastBitmapIsDeleted) {
    auto image = std::make_unique<CImage>();

    std::vector<HBITMAP> loaded;
    for (int load = 0; load < 3; ++load) {
        image->LoadFromResource(OwnInstance(), IDB_PLAIN);
        loaded.push_back(*image);
    }
    EXPECT_TRUE(g_deletedObjects.empty());
    image.reset();

    EXPECT_EQ(g_deletedObjects, std::vector<HGDIOBJ>{loaded[2]});
    for (int lost = 0; lost < 2; ++lost) {
        EXPECT_TRUE(DeleteObject(loaded[lost])) << "the bitmap of load " << lost << " is gone";
    }
}

TEST_F(ImageEnd, AnEmptyOneDeletesNothing) {
    std::make_unique<CImage>().reset();

    EXPECT_TRUE(g_deletedObjects.empty());
}

const CImage* g_ending = nullptr;
std::vector<HGDIOBJ> g_deletedAtTheCount;
bool g_isEmptyAtTheCount = false;
decltype(&EnterCriticalSection) g_enter = nullptr;

/// Looks around when the image is about to leave the count, which is kept under the section.
void WINAPI LookAtTheCount(CRITICAL_SECTION* section) {
    g_deletedAtTheCount = g_deletedObjects;
    g_isEmptyAtTheCount =
        g_ending->IsNull() && g_ending->GetWidth() == 0 && g_ending->GetPitch() == 0;
    g_enter(section);
}

TEST_F(ImageEnd, TheBitmapAndTheFieldsGoAheadOfTheCount) {
    auto image = std::make_unique<CImage>();
    image->LoadFromResource(OwnInstance(), IDB_PLAIN);
    const HBITMAP bitmap = *image;
    const ImportHook<decltype(&EnterCriticalSection)> enter(
        RuntimeDll(), nullptr, "EnterCriticalSection", &LookAtTheCount);
    g_enter = enter.Original();
    g_ending = image.get();

    image.reset();

    EXPECT_EQ(g_deletedAtTheCount, std::vector<HGDIOBJ>{bitmap});
    EXPECT_TRUE(g_isEmptyAtTheCount);
}

}  // namespace
