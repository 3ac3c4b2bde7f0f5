#pragma once

#include <glog/logging.h>

#include <windows.h>

#include <ostream>
#include <string>

/// Brings up the log: makes the folder "Logs" beside the module's file and has the log library
/// write NAME.INFO.log and its siblings there, every line at once.
///
/// `name` must live as long as the module: the library keeps the pointer. The result is the folder.
/// Whether it could be made is not told; without it the library loses the lines and complains on
/// stderr. Once for each load of the module and ahead of its log calls: the library ends the
/// process at a second time. There is no opposite.
std::wstring SetUpLogging(const char* name);

/// Fills `result` with the folder of the module's file, in the ANSI code page and without a
/// backslash at its end, and gives its text. Empty when the system doesn't know the module.
const char* GetModuleDirectory(std::string& result, HMODULE module);

/// The log library's callback for a line's prefix, on the thread that logs. `data` is not used. The
/// library adds a blank.
void FormatLogPrefix(std::ostream& stream, const google::LogMessageInfo& line, void* data);
