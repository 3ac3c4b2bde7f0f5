#pragma once

#include <string>

/// The seven lines that name the product in the About dialog, `version` as the second of them.
///
/// Lines are parted by single carriage returns, as a static control shows them, and there is none
/// at the end. The version stands as it is, whatever its length and characters; an empty one leaves
/// its line empty.
std::wstring ProductText(const std::wstring& version);
