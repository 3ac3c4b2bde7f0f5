#include "runtime/lisp/file_cell.h"

#include "runtime/lisp/error.h"
#include "runtime/lisp/printer.h"
#include "runtime/lisp/text_encoding.h"

namespace drafthost {

std::FILE* StreamArgument(const LispValue& value, bool forReading) {
    if (value.Kind() != LispKind::File) throw BadArgumentType(L"FILE", value);
    const FileCell& file = CellOf<FileCell>(value);
    if (file.stream == nullptr) throw LispError(L"file is closed: " + LispPrin1(value));
    if (file.isForReading != forReading) {
        throw LispError(
            (forReading ? L"file not open for reading: " : L"file not open for writing: ") +
            LispPrin1(value));
    }
    return file.stream.get();
}

void PutText(LispHost& host, const LispValue& file, const std::wstring& text) {
    if (file.IsNil()) {
        host.Print(text);
        return;
    }
    std::FILE* stream = StreamArgument(file, false);
    const std::string bytes = Utf8OfText(text);
    if (std::fwrite(bytes.data(), 1, bytes.size(), stream) != bytes.size()) {
        throw LispError(L"file not written: " + LispPrin1(file));
    }
}

}  // namespace drafthost
