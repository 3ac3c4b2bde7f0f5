#pragma once

#include <string>
#include <string_view>

namespace drafthost {

/// `wcmatch`: whether the whole of `text` matches one of the patterns between the commas.
///
/// "#" is one digit, "@" one letter, "." one other character, "?" any one, "*" any sequence,
/// "[...]" one of those within, "[~...]" one that isn't, with "-" between two for a range; a
/// backquote takes the next character as it is. "~" ahead of a pattern means all that doesn't match
/// the rest of it. Case matters. A bracket that is never closed stands for itself.
bool MatchesWildcards(const std::wstring& text, std::wstring_view patterns);

}  // namespace drafthost
