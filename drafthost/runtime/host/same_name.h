#pragma once

#include <string>

namespace drafthost {

/// Whether two names of commands, settings or LISP functions are the same but for case.
bool IsSameName(const std::wstring& left, const std::wstring& right);

}  // namespace drafthost
