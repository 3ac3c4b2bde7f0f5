#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace drafthost {

/// Takes away all that `module` registered with the host and didn't take back, so that nothing
/// leads into its code any more. Gives a text for each, such as "command KVTCAD/LoadKVT". The
/// image need not be there any longer.
std::vector<std::wstring> RemoveLeftovers(HMODULE module);

}  // namespace drafthost
