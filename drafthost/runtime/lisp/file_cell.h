#pragma once

#include "runtime/lisp/cells.h"

#include <cstdio>
#include <memory>
#include <string>

namespace drafthost {

/// A file that LISP opened; closed with its last value at the latest.
struct FileCell : LispCell {
    struct Closer {
        void operator()(std::FILE* stream) const noexcept { std::fclose(stream); }
    };

    FileCell(std::FILE* stream, std::wstring path, bool isForReading)
        : stream(stream), path(std::move(path)), isForReading(isForReading) {}

    std::unique_ptr<std::FILE, Closer> stream;  ///< null once closed
    const std::wstring path;
    const bool isForReading;
};

/// The open stream of a file argument. Throws LispError for what is no file, a closed one, or one
/// that was opened for the other direction.
std::FILE* StreamArgument(const LispValue& value, bool forReading);

/// Puts text out to the file in UTF-8, or to the host's command line where `file` is nil.
void PutText(LispHost& host, const LispValue& file, const std::wstring& text);

}  // namespace drafthost
