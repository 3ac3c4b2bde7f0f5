#include "install/install_record.h"

#include <gtest/gtest.h>

TEST(GetInstallLocation, GivesACopy) {
    InstallLocation = L"C:\\app";

    std::wstring copy = GetInstallLocation();
    copy += L"\\changed";

    EXPECT_EQ(copy, L"C:\\app\\changed");
    EXPECT_EQ(InstallLocation, L"C:\\app");
    InstallLocation.clear();
}

TEST(InstallKey, IsTheInstallersInThe32BitView) {
    EXPECT_STREQ(installKeyPath, L"SOFTWARE\\Brennvik\\KVT CAD辅助设计软件");
    EXPECT_EQ(installKeyAccess, 0x20219u);
}
