#include "runtime/lisp/file_cell.h"

#include "runtime/lisp/arguments.h"
#include "runtime/lisp/evaluator.h"
#include "runtime/lisp/function_tables.h"
#include "runtime/lisp/text_encoding.h"

#include <optional>

namespace drafthost {

namespace {

using Arguments = std::vector<LispValue>;

LispValue Open(LispEvaluator&, const Arguments& arguments) {
    const std::wstring& path = StringArgument(arguments[0]);
    const std::wstring& mode = StringArgument(arguments[1]);
    const bool isForReading = mode == L"r" || mode == L"R";
    if (!isForReading && mode != L"w" && mode != L"W" && mode != L"a" && mode != L"A") {
        throw BadArgumentValue(L"file mode:", arguments[1]);
    }
    // Text mode for writing, so that each line ends in CR LF.
    std::FILE* stream = _wfopen(path.c_str(), isForReading ? L"rb" : mode.c_str());
    if (stream == nullptr) return LispValue();
    return LispValue::OfNewCell(LispKind::File, new FileCell(stream, path, isForReading));
}

LispValue Close(LispEvaluator&, const Arguments& arguments) {
    if (arguments[0].Kind() != LispKind::File) throw BadArgumentType(L"FILE", arguments[0]);
    CellOf<FileCell>(arguments[0]).stream.reset();
    return LispValue();
}

/// Without its end, CR LF or LF; empty at the end of the file.
std::optional<std::string> ReadLineOf(std::FILE* stream) {
    std::string line;
    int byte = std::getc(stream);
    if (byte == EOF) return std::nullopt;
    for (; byte != EOF && byte != '\n'; byte = std::getc(stream)) {
        line += static_cast<char>(byte);
    }
    if (!line.empty() && line.back() == '\r') line.pop_back();
    return line;
}

LispValue ReadLine(LispEvaluator& evaluator, const Arguments& arguments) {
    if (arguments.empty() || arguments[0].IsNil()) {
        const auto line = evaluator.Host().ReadLine({});
        return line ? LispValue::String(*line) : LispValue();
    }
    const auto line = ReadLineOf(StreamArgument(arguments[0], true));
    return line ? LispValue::String(TextOfBytes(*line)) : LispValue();
}

LispValue WriteLine(LispEvaluator& evaluator, const Arguments& arguments) {
    PutText(evaluator.Host(), arguments.size() == 2 ? arguments[1] : LispValue(),
            StringArgument(arguments[0]) + L"\n");
    return arguments[0];
}

constexpr LispFunctionRow rows[] = {
    {L"OPEN", Open, 2, 2},
    {L"CLOSE", Close, 1, 1},
    {L"READ-LINE", ReadLine, 0, 1},
    {L"WRITE-LINE", WriteLine, 1, 2},
};

}  // namespace

void DefineFileFunctions(LispEvaluator& evaluator) {
    for (const LispFunctionRow& row : rows)
        evaluator.Define(row);
}

}  // namespace drafthost
