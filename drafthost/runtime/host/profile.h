#pragma once

#include "runtime/control.h"

#include <string>

namespace drafthost {

// The user's settings: named texts that outlive the process, kept in the registry under
// HKEY_CURRENT_USER\Software\Drafthost\Profiles\NAME\Environment. Names are compared without
// regard to case. A setting that the profile doesn't hold has its default ("ACAD" alone has one:
// the folder "Support" beside the program), and without a default the value of the process's
// environment variable of that name.

/// The profile in use.
const std::wstring& ProfileName();

}  // namespace drafthost
