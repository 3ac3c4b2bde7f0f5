#include "host/good_installation.h"

#include "install/install_record.h"

GoodInstallation::GoodInstallation(const std::wstring& folderName) : m_folder(folderName) {
    InstallLocation.clear();
    InstallVersion.clear();
    m_registry.SetLocation(Location());
    m_registry.SetVersion(L"3.5.1");
    WriteConfig("<?xml version=\"1.0\"?><Config></Config>");
}

GoodInstallation::~GoodInstallation() {
    InstallLocation.clear();
    InstallVersion.clear();
}
