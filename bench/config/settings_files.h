#pragma once

#include <string>

/// A file of about `bytes` bytes: settings in groups of ten. Made at the first call for this size,
/// gone when the program ends.
std::wstring SettingsFile(size_t bytes);
