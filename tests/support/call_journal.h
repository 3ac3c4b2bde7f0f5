#pragma once

#include <string>
#include <vector>

/// What a test's replacements of imported functions were called for, in order. One list for the
/// program: a replacement is a plain function and has no place of its own to write to. Not for use
/// from several threads.
namespace CallJournal {

/// Empties the list; the first line of a test that reads it.
void Clear();
void Add(const std::wstring& call);
const std::vector<std::wstring>& Calls();

/// The list, which is empty afterwards.
std::vector<std::wstring> Take();

/// How many entries equal `call`.
int Count(const std::wstring& call);

}  // namespace CallJournal
