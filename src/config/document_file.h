#pragma once

#include <tinyxml2.h>

/// Replaces the document by what the file holds.
///
/// `narrowPath` is in the ANSI code page. The outcome is the document's error: none, what the parse
/// met (an empty file is an error too), XML_ERROR_FILE_NOT_FOUND with "filename=PATH" when the file
/// can't be opened, XML_ERROR_FILE_COULD_NOT_BE_OPENED with "filename=<null>" for a null path.
void ReadDocument(tinyxml2::XMLDocument& document, const char* narrowPath);

/// Writes the document to the file, indented and with the platform's line ends.
///
/// `narrowPath` is in the ANSI code page. The outcome is the document's error: none when the file
/// was opened, also when the writing itself failed; XML_ERROR_FILE_COULD_NOT_BE_OPENED with
/// "filename=PATH", or "filename=<null>" for a null path, when it wasn't.
void WriteDocument(tinyxml2::XMLDocument& document, const char* narrowPath);
