#pragma once

#include <string>

namespace drafthost {

/// By the rules of the system, so beyond ASCII too; Chinese text stays as it is.
std::wstring ToUpperCase(std::wstring text);
std::wstring ToLowerCase(std::wstring text);

}  // namespace drafthost
