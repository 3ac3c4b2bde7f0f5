#pragma once

#include <string>

namespace drafthost {

/// The file name of a dialog's picture: "dialog-01-" and the caption, ".png". What a file name
/// can't hold becomes "_", a long caption is cut, an empty one is left out with its hyphen.
std::wstring PictureName(int number, const std::wstring& caption);

}  // namespace drafthost
