#pragma once

#include <string>

/// The host's library generation that the module is made for. The installation's release directory
/// is named after it, and the module reports it to the host.
inline constexpr int libraryGeneration = 17;

/// The host's support search path with the installation at its head.
///
/// `location` is the installation's directory, `current` the list of directories with ";" between
/// them. Gives `current` with "location;" and "location\R17x\x64;" in front, in this order, but
/// without an entry that `current` has already. An entry counts as there when its text with the ";"
/// stands anywhere in `current`, case included: the last item of a list without a final ";" doesn't
/// count, a longer directory with the same end does. Nothing else is changed.
std::wstring PrependSearchPaths(const std::wstring& location, const std::wstring& current);
