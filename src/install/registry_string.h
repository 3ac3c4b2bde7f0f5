#pragma once

#include <windows.h>

#include <string>

/// Reads a text value of a registry key.
///
/// `access` is the mask the key is opened with. Gives true and the value's text, up to its first
/// zero, in `output`; on false `output` is as it was. Data of at most 32 bytes is taken as text
/// whatever its type, with or without a terminator. Longer data must be a plain or an expandable
/// string (which is not expanded) that ends in a zero wide character.
///
/// Lets std::bad_alloc through, with the key closed and `output` as it was.
bool ReadRegistryString(HKEY hive, REGSAM access, const wchar_t* keyPath, const wchar_t* valueName,
                        std::wstring& output);
