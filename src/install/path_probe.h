#pragma once

#include <string>

/// What stands at a path.
enum PathKind {
    PathAbsent = 0,     ///< nothing of that name was found
    PathDirectory = 1,  ///< a directory
    PathFile = 2,       ///< anything else
};

/// Tells what `path` names, by a file search for it as it stands.
///
/// Nothing is normalised: a trailing separator and the empty path give `PathAbsent`, slashes of
/// either kind work, and for a path with wildcards the first match answers.
PathKind ProbePath(const std::wstring& path);
