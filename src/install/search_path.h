#pragma once

#include <array>
#include <string>

/// The host's library generation that the module is made for. The installation's release directory
/// is named after it, and the module reports it to the host.
inline constexpr int libraryGeneration = 17;

/// What the search path is to hold, each with its ";", in the order in which it is looked for.
using SearchPathEntries = std::array<std::wstring, 3>;

/// "location\R17x\x64;", "location;" and the empty text. `location` is the installation's
/// directory.
SearchPathEntries MakeSearchPathEntries(const std::wstring& location);

/// The host's support search path with the installation at its head.
///
/// `current` is the list of directories with ";" between them. One entry after the other is put in
/// front of it, so that the last one stands first, but none that is there already. An entry counts
/// as there when its text with the ";" stands anywhere, case included: the last item of a list
/// without a final ";" doesn't count, a longer directory with the same end does. Nothing else is
/// changed.
std::wstring PrependSearchPaths(const SearchPathEntries& entries, std::wstring current);
