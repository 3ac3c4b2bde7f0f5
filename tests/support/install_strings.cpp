// The installation's two strings for programs that link code which reads them but not the module's
// statics, whose document data needs a running host.

#include "install/install_record.h"

std::wstring InstallLocation;
std::wstring InstallVersion;
