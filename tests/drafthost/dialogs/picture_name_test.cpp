#include "app/picture_name.h"

#include <gtest/gtest.h>

using drafthost::PictureName;

TEST(PictureName, IsMadeOfNumberAndCaption) {
    struct Row {
        const char* why;
        int number;
        std::wstring caption;
        std::wstring name;
    };
    const Row rows[] = {
        {"plain", 1, L"form", L"dialog-01-form.png"},
        {"Chinese and a blank", 2, L"关于 KVT", L"dialog-02-关于 KVT.png"},
        {"no caption", 3, L"", L"dialog-03.png"},
        {"two digits", 10, L"x", L"dialog-10-x.png"},
        {"more than two", 123, L"x", L"dialog-123-x.png"},
        {"what a file name can't hold", 4, L"a<b>c:d\"e/f\\g|h?i*j\nk",
         L"dialog-04-a_b_c_d_e_f_g_h_i_j_k.png"},
        {"long", 5, std::wstring(100, L'y'), L"dialog-05-" + std::wstring(60, L'y') + L".png"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(PictureName(row.number, row.caption), row.name) << row.why;
    }
}
