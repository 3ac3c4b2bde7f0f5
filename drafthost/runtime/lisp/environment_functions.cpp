#include "runtime/lisp/arguments.h"
#include "runtime/lisp/evaluator.h"
#include "runtime/lisp/file_name.h"
#include "runtime/lisp/function_tables.h"
#include "runtime/lisp/text_encoding.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

namespace drafthost {

namespace {

using Arguments = std::vector<LispValue>;

LispValue StringOrNil(const std::optional<std::wstring>& text) {
    return text ? LispValue::String(*text) : LispValue();
}

LispValue GetEnv(LispEvaluator& evaluator, const Arguments& arguments) {
    return StringOrNil(evaluator.Host().GetEnvironment(StringArgument(arguments[0])));
}

LispValue SetEnv(LispEvaluator& evaluator, const Arguments& arguments) {
    const std::wstring& name = StringArgument(arguments[0]);
    const std::wstring& value = StringArgument(arguments[1]);
    return evaluator.Host().SetEnvironment(name, value) ? arguments[1] : LispValue();
}

LispValue GetVar(LispEvaluator& evaluator, const Arguments& arguments) {
    return evaluator.Host().GetVariable(StringArgument(arguments[0])).value_or(LispValue());
}

LispValue SetVar(LispEvaluator& evaluator, const Arguments& arguments) {
    if (!evaluator.Host().SetVariable(StringArgument(arguments[0]), arguments[1])) {
        throw LispError(L"variable setting rejected: " + LispPrin1(arguments[0]) + L" " +
                        LispPrin1(arguments[1]));
    }
    return arguments[1];
}

LispValue FindFile(LispEvaluator& evaluator, const Arguments& arguments) {
    const std::wstring& name = StringArgument(arguments[0]);
    return name.empty() ? LispValue() : StringOrNil(evaluator.Host().FindFile(name));
}

/// A name without an extension stands for a file with one of the three that LISP files have.
std::optional<std::wstring> FindLispFile(LispHost& host, const std::wstring& name) {
    if (name.empty()) return std::nullopt;
    if (!SplitFileName(name).extension.empty()) return host.FindFile(name);
    for (const wchar_t* extension : {L".vlx", L".fas", L".lsp", L""}) {
        auto path = host.FindFile(name + extension);
        if (path) return path;
    }
    return std::nullopt;
}

std::optional<std::string> BytesOf(const std::wstring& path) {
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    if (!file) return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

LispValue Load(LispEvaluator& evaluator, const Arguments& arguments) {
    const auto path = FindLispFile(evaluator.Host(), StringArgument(arguments[0]));
    const auto bytes = path ? BytesOf(*path) : std::nullopt;
    if (!bytes) {
        if (arguments.size() == 1) throw LispError(L"LOAD failed: " + LispPrin1(arguments[0]));
        const LispValue& onFailure = arguments[1];
        const bool isFunction =
            IsLispFunction(onFailure.IsSymbol() ? SymbolOf(onFailure).value : onFailure);
        return isFunction ? evaluator.Apply(onFailure, {}) : onFailure;
    }
    if (IsCompiledLisp(*bytes)) {
        throw LispError(L"LOAD failed: " + LispPrin1(arguments[0]) +
                        L" is compiled (FAS or VLX); only LISP text can be loaded here");
    }
    return evaluator.EvaluateText(TextOfLispFile(*bytes));
}

void RunCommand(LispEvaluator& evaluator, const Arguments& arguments) {
    for (const LispValue& argument : arguments) {
        const bool isCancel = argument.IsNil();
        if (!isCancel && !argument.IsString() && !argument.IsNumber() && !argument.IsCons()) {
            throw BadArgumentType(L"command argument", argument);
        }
    }
    evaluator.Host().RunCommand(arguments);
}

LispValue Command(LispEvaluator& evaluator, const Arguments& arguments) {
    RunCommand(evaluator, arguments);
    return LispValue();
}

LispValue CommandFunction(LispEvaluator& evaluator, const Arguments& arguments) {
    RunCommand(evaluator, arguments);
    return LispValue::True();
}

/// For what has nothing to do here, and start-up files call it all the same: extensions to bring
/// in, windows of text and graphics to switch between.
LispValue DoNothing(LispEvaluator&, const Arguments&) {
    return LispValue();
}

LispValue Version(LispEvaluator&, const Arguments&) {
    return LispValue::String(L"drafthost LISP 17.0");
}

LispValue FileNameBase(LispEvaluator&, const Arguments& arguments) {
    return LispValue::String(SplitFileName(StringArgument(arguments[0])).base);
}

LispValue FileNameDirectory(LispEvaluator&, const Arguments& arguments) {
    return LispValue::String(SplitFileName(StringArgument(arguments[0])).directory);
}

LispValue FileNameExtension(LispEvaluator&, const Arguments& arguments) {
    const std::wstring extension = SplitFileName(StringArgument(arguments[0])).extension;
    return extension.empty() ? LispValue() : LispValue::String(extension);
}

constexpr LispFunctionRow rows[] = {
    {L"GETENV", GetEnv, 1, 1},
    {L"SETENV", SetEnv, 2, 2},
    {L"GETVAR", GetVar, 1, 1},
    {L"SETVAR", SetVar, 2, 2},
    {L"FINDFILE", FindFile, 1, 1},
    {L"LOAD", Load, 1, 2},
    {L"COMMAND", Command},
    {L"COMMAND-S", Command},
    {L"VL-CMDF", CommandFunction},
    {L"VL-LOAD-COM", DoNothing, 0, 0},
    {L"VL-LOAD-REACTORS", DoNothing, 0, 0},
    {L"GRAPHSCR", DoNothing, 0, 0},
    {L"TEXTSCR", DoNothing, 0, 0},
    {L"VER", Version, 0, 0},
    {L"VL-FILENAME-BASE", FileNameBase, 1, 1},
    {L"VL-FILENAME-DIRECTORY", FileNameDirectory, 1, 1},
    {L"VL-FILENAME-EXTENSION", FileNameExtension, 1, 1},
};

}  // namespace

void DefineEnvironmentFunctions(LispEvaluator& evaluator) {
    for (const LispFunctionRow& row : rows)
        evaluator.Define(row);
    SymbolOf(evaluator.Symbols().Intern(L"PAUSE")).value = LispValue::String(L"\\");
}

}  // namespace drafthost
