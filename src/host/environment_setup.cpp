#include "host/environment_setup.h"

#include "config/configuration.h"
#include "config/log_setup.h"
#include "install/install_record.h"
#include "install/path_probe.h"
#include "install/registry_string.h"
#include "install/search_path_setup.h"

#include <glog/logging.h>

#include <atlstr.h>

namespace {

bool ReadInstallValue(const wchar_t* name, std::wstring& output) {
    return ReadRegistryString(HKEY_LOCAL_MACHINE, installKeyAccess, installKeyPath, name, output);
}

void LogOutcome(bool locationRead, bool configLoaded) {
    const CStringA location(InstallLocation.c_str());
    const CStringA version(InstallVersion.c_str());
    LOG(INFO) << "读取 SOFTWARE\\Brennvik\\KVT CAD辅助设计软件\\Location = "
              << location.GetString();
    LOG(INFO) << "读取 SOFTWARE\\Brennvik\\KVT CAD辅助设计软件\\Version = " << version.GetString();
    // Meant: whether the value was read; a missing directory still reads as present.
    LOG(INFO) << "安装目录 " << location.GetString() << (locationRead ? "-已存在" : "-不存在");
    LOG(INFO) << "读取配置" << (configLoaded ? "-成功" : "-错误");
}

}  // namespace

bool SetUpEnvironment() {
    Configuration configuration;
    const bool locationRead = ReadInstallValue(L"Location", InstallLocation);
    const bool versionRead = ReadInstallValue(L"Version", InstallVersion);
    // Meant: a plain file is present too.
    const bool installPresent = ProbePath(InstallLocation) != PathAbsent;
    // Meant: no test of the location; an empty one gives "\config.xml" on the current drive.
    const bool configLoaded = configuration.Load(InstallLocation + L"\\config.xml");
    // Meant: the element's presence alone turns the log on, whatever it says.
    if (configuration.IndexOf("Config.EnableLog") != -1) {
        SetUpLogging("KVTCAD");  // Result ignored: nobody needs the folder here.
    }
    LogOutcome(locationRead, configLoaded);
    if (!locationRead || !versionRead || !installPresent || !configLoaded) return false;
    AddSearchPaths();
    return true;
}
