#pragma once

#include <string>

/// The full name of a log file but for ".log", which the log library adds: one file for each
/// severity and folder, without the host, user, date or process of the library's stock names.
///
/// Between folder and file stands one "/", whatever the folder's own separators are.
std::string LogFileBase(const std::string& directory, const std::string& name,
                        const std::string& severity);
