#include "install/install_record.h"

std::wstring GetInstallLocation() {
    return InstallLocation;
}
