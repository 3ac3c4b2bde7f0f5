// The About dialog's resources, read back from the built module file.

#include "support/occurrences.h"
#include "ui/dialog_template.h"
#include "ui/module_file.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

constexpr WORD simplifiedChinese = 2052;

struct ItemRow {
    const char* what;
    DWORD id;
    const wchar_t* windowClass;
    const wchar_t* text;  ///< null: anything but nothing
    DWORD style;
    int x, y, width, height;
};

void ExpectItems(const DialogTemplate& dialog, const std::vector<ItemRow>& rows) {
    ASSERT_EQ(dialog.items.size(), rows.size());
    for (size_t index = 0; index < rows.size(); ++index) {
        const ItemRow& row = rows[index];
        const TemplateItem& item = dialog.items[index];
        SCOPED_TRACE(row.what);
        EXPECT_EQ(item.id, row.id);
        // Names of window classes know no case, and the cross-build's resource compiler writes
        // capitals.
        EXPECT_EQ(_wcsicmp(item.windowClass.c_str(), row.windowClass), 0);
        if (row.text != nullptr) {
            EXPECT_EQ(item.text, row.text);
        } else {
            EXPECT_FALSE(item.text.empty());
        }
        EXPECT_EQ(item.style, row.style);
        EXPECT_EQ(item.extendedStyle, 0u);
        EXPECT_EQ(item.helpId, 0u);
        EXPECT_EQ(item.extraBytes, 0);
        EXPECT_EQ(std::vector<int>({item.x, item.y, item.width, item.height}),
                  std::vector<int>({row.x, row.y, row.width, row.height}));
    }
}

void ExpectFrame(const DialogTemplate& dialog, DWORD style, DWORD extendedStyle, int width,
                 int height) {
    EXPECT_EQ(dialog.version, 1);
    EXPECT_EQ(dialog.signature, 0xFFFF);
    EXPECT_EQ(dialog.helpId, 0u);
    EXPECT_EQ(dialog.style, style);
    EXPECT_EQ(dialog.extendedStyle, extendedStyle);
    EXPECT_EQ(std::vector<int>({dialog.x, dialog.y, dialog.width, dialog.height}),
              std::vector<int>({0, 0, width, height}));
    EXPECT_EQ(dialog.menu, L"");
    EXPECT_EQ(dialog.windowClass, L"");
    EXPECT_EQ(dialog.face, L"MS Shell Dlg");
    EXPECT_EQ(dialog.pointSize, 8);
    EXPECT_EQ(dialog.weight, 400);
    EXPECT_EQ(dialog.italic, 0);
    EXPECT_EQ(dialog.characterSet, 1);
}

TEST(AboutResources, TheFrameIsToTheUnit) {
    const DialogTemplate dialog = ReadDialogTemplate(ModuleFile(), 104, simplifiedChinese);

    ExpectFrame(dialog, 0x80C800C8, 0x00000080, 239, 255);
    EXPECT_FALSE(dialog.caption.empty());
    ExpectItems(dialog, {{"OK", 1, L"button", L"确定", 0x50010001, 182, 234, 50, 14},
                         {"tabs", 105, L"SysTabControl32", L"", 0x50000000, 7, 7, 225, 223}});
}

TEST(AboutResources, ThePageIsToTheUnit) {
    const DialogTemplate dialog = ReadDialogTemplate(ModuleFile(), 130, simplifiedChinese);

    ExpectFrame(dialog, 0x400000C8, 0, 210, 210);
    EXPECT_EQ(dialog.caption, L"");
    ExpectItems(dialog, {{"legal", 0xFFFFFFFF, L"static", nullptr, 0x50820000, 20, 116, 170, 78},
                         {"product", 124, L"static", nullptr, 0x50020000, 93, 27, 98, 63},
                         {"logo", 125, L"static", L"logo", 0x50020000, 20, 27, 57, 55}});
}

TEST(AboutResources, TextsNameNoRealAddress) {
    const DialogTemplate dialog = ReadDialogTemplate(ModuleFile(), 130, simplifiedChinese);

    const std::wstring& legal = dialog.items[0].text;
    EXPECT_NE(legal.find(L"Brennvik"), std::wstring::npos);
    EXPECT_EQ(Occurrences(legal, L"//www.example.com/"), 1u);
    EXPECT_EQ(Occurrences(legal, L"support@example.com"), 1u);
    EXPECT_EQ(Occurrences(legal, L"."), 3u) << "one of another address";
    EXPECT_EQ(legal.find(L'\n'), std::wstring::npos);
}

TEST(AboutResources, TheLogoIsAPlainBottomUpBitmap) {
    HRSRC found =
        FindResourceExW(ModuleFile(), RT_BITMAP, MAKEINTRESOURCEW(133), simplifiedChinese);
    ASSERT_NE(found, nullptr);
    BITMAPINFOHEADER header = {};
    std::memcpy(&header, LockResource(LoadResource(ModuleFile(), found)), sizeof header);

    EXPECT_EQ(header.biSize, sizeof header);
    EXPECT_EQ(header.biWidth, 237);
    EXPECT_EQ(header.biHeight, 226) << "positive: bottom-up";
    EXPECT_EQ(header.biPlanes, 1);
    EXPECT_EQ(header.biBitCount, 24);
    EXPECT_EQ(header.biCompression, static_cast<DWORD>(BI_RGB));
    EXPECT_EQ(header.biXPelsPerMeter, 7874);
    EXPECT_EQ(header.biYPelsPerMeter, 7874);
    EXPECT_EQ(SizeofResource(ModuleFile(), found), sizeof header + 712u * 226u);
}

TEST(AboutResources, TheModuleTellsItsVersion) {
    const std::wstring path = ProgramFolder() + L"\\KVTCAD.arx";
    std::vector<BYTE> bytes(GetFileVersionInfoSizeW(path.c_str(), nullptr));
    ASSERT_TRUE(
        GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(bytes.size()), bytes.data()));
    void* value = nullptr;
    UINT length = 0;

    ASSERT_TRUE(
        VerQueryValueW(bytes.data(), L"\\StringFileInfo\\080404b0\\ProductName", &value, &length));
    EXPECT_STREQ(static_cast<const wchar_t*>(value), L"KVT CAD辅助设计软件");
    ASSERT_TRUE(
        VerQueryValueW(bytes.data(), L"\\StringFileInfo\\080404b0\\FileVersion", &value, &length));
    EXPECT_STREQ(static_cast<const wchar_t*>(value), L"" PROJECT_VERSION);
}

}  // namespace
