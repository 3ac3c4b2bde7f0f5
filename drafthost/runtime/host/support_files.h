#pragma once

#include <optional>
#include <string>

namespace drafthost {

/// The full path of the file `name`, which may have slashes of both kinds. A name with a drive or a
/// leading slash is taken as it stands; any other is looked for in the working folder, in the
/// current drawing's folder and then along the setting ACAD. With `extension`, such as L".lsp", a
/// name that isn't there is tried again with it. Empty: not there. Folders don't count.
std::optional<std::wstring> FindSupportFile(const std::wstring& name,
                                            const std::wstring& extension = {});

}  // namespace drafthost
