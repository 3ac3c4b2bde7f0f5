#include "runtime/host/support_files.h"

#include "runtime/host/full_path.h"
#include "runtime/host/search_path.h"
#include "runtime/host/services.h"
#include "runtime/lisp/file_attributes.h"

#include "runtime/control.h"

namespace drafthost {

std::optional<std::wstring> FindSupportFile(const std::wstring& name,
                                            const std::wstring& extension) {
    if (name.empty()) return {};
    const Services* services = HostServices();
    const Document* document = services == nullptr ? nullptr : services->documents.Current();
    const std::wstring drawingFolder = document == nullptr ? std::wstring() : document->Folder();
    const std::wstring path = WithBackslashes(name);
    for (const std::wstring& candidate :
         SearchCandidates(path, drawingFolder, GetSetting(L"ACAD").value_or(std::wstring()))) {
        if (IsFile(candidate)) return FullPath(candidate);
    }
    return extension.empty() ? std::nullopt : FindSupportFile(name + extension);
}

}  // namespace drafthost
