#pragma once

#include "support/install_registry.h"
#include "support/temp_folder.h"

#include <string>

/// A good installation in the real registry and on disk, without a log, for the life of this
/// object. The module's two strings are empty at both ends.
class GoodInstallation {
  public:
    explicit GoodInstallation(const std::wstring& folderName = L"安装 目录");
    GoodInstallation(const GoodInstallation&) = delete;
    GoodInstallation& operator=(const GoodInstallation&) = delete;
    ~GoodInstallation();

    const std::wstring& Location() const { return m_folder.Path(); }
    std::wstring ConfigFile() const { return m_folder / L"config.xml"; }
    void WriteConfig(const std::string& text) { WriteFileBytes(ConfigFile(), text); }

    InstallRegistry m_registry;

  private:
    TempFolder m_folder;
};
