#pragma once

#include <windows.h>

#include <string>
#include <vector>

class AcRxClass;

namespace drafthost {

class Dictionary;

/// Registers the descriptors of the host's own classes and joins them. `classes` becomes the
/// dictionary of `newAcRxClass`.
void RegisterHostClasses(Dictionary& classes);

/// Deletes the descriptors that `module` registered and didn't delete; gives their names.
std::vector<std::wstring> DeleteClassesOf(HMODULE module);

}  // namespace drafthost
