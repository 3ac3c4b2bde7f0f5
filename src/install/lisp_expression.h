#pragma once

#include <string>

/// Where the LISP application lies in the installation at `location`.
std::wstring LispFilePath(const std::wstring& location);

/// The LISP text that loads the file at `path`, which must have forward slashes: a backslash is
/// LISP's escape character. Nothing is escaped; a double quote in the path breaks the expression.
std::wstring LispLoadExpression(const std::wstring& path);
