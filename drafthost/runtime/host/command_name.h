#pragma once

#include <string>

namespace drafthost {

/// The name without the marks that a user may put ahead of it: "'" for a transparent command, "."
/// for the original command and "_" for the global name, in any order.
std::wstring WithoutCommandMarks(const std::wstring& typed);

/// The name without the "'" alone, as a local name may begin with the other marks.
std::wstring WithoutTransparentMark(const std::wstring& typed);

}  // namespace drafthost
