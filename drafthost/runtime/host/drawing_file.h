#pragma once

#include "runtime/control.h"

namespace drafthost {

/// Whether a drawing file can be opened: `Opened`, `FileMissing` or `Unreadable`. `path` gets the
/// full path, with ".dwg" added when only that name is there.
OpenResult CheckDrawingFile(const std::wstring& file, std::wstring& path);

}  // namespace drafthost
