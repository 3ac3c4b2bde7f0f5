#include "app/console.h"

#include "app/console_line.h"

namespace drafthost {

namespace {

constexpr const wchar_t* commandPrompt = L"Command: ";
constexpr const wchar_t* unfinishedPrompt = L"(_> ";

ExitCode CodeOf(LoadResult result) {
    switch (result) {
        case LoadResult::Loaded:
        case LoadResult::AlreadyLoaded:
            return ExitCode::Success;
        case LoadResult::FileMissing:
            return ExitCode::FileMissing;
        case LoadResult::NotLoaded:
            return ExitCode::ModuleNotLoaded;
        case LoadResult::Refused:
            return ExitCode::ModuleRefused;
    }
    return ExitCode::InternalError;
}

/// What is wrong with the command line isn't part of the transcript.
ExitCode Failed(ExitCode code, const std::wstring& problem) {
    StartNewLine();
    PrintError(problem);
    return code;
}

bool IsOpen(OpenResult result) {
    return result == OpenResult::Opened || result == OpenResult::AlreadyOpen;
}

}  // namespace

Console::Console(const Options& options) : m_options(options) {
    SetLineInput(this);
}

Console::~Console() {
    SetLineInput(nullptr);
}

void Console::AddSource(std::unique_ptr<LineSource> source) {
    m_sources.push_back(std::move(source));
}

ExitCode Console::Begin() {
    std::wstring problem;
    for (const std::wstring& module : m_options.modules) {
        const ExitCode code = CodeOf(LoadModule(module, &problem));
        if (code != ExitCode::Success) return Failed(code, problem);
    }
    if (m_options.drawings.empty()) {
        NewDrawing();  // Nothing is open yet, so it can't be one too many.
        return ExitCode::Success;
    }
    for (const std::wstring& drawing : m_options.drawings) {
        if (!IsOpen(OpenDrawing(drawing, &problem))) return Failed(ExitCode::FileMissing, problem);
    }
    return ExitCode::Success;
}

ExitCode Console::Run() {
    while (!m_hasQuit) {
        const auto statement = ReadStatement();
        if (!statement) break;
        if (!Execute(*statement) && m_options.stopsOnError) return ExitCode::ScriptFailed;
    }
    return ExitCode::Success;
}

bool Console::IsLineTyped() const {
    return m_currentSource < m_sources.size() && m_sources[m_currentSource]->ShowsTyping();
}

std::optional<std::wstring> Console::ReadLine(const std::wstring& prompt) {
    Print(prompt);
    for (; m_currentSource < m_sources.size(); ++m_currentSource) {
        LineSource& source = *m_sources[m_currentSource];
        auto line = source.NextLine();
        if (!line) continue;
        if (source.ShowsTyping()) {
            MarkLineStart();
        } else {
            Print(*line + L"\n");
        }
        return line;
    }
    Print(L"\n");
    return {};
}

std::optional<std::wstring> Console::ReadStatement() {
    StartNewLine();
    auto statement = ReadLine(commandPrompt);
    if (!statement || KindOfLine(*statement) != LineKind::Lisp) return statement;
    while (IsLispUnfinished(*statement)) {
        const auto line = ReadLine(unfinishedPrompt);
        if (!line) break;
        *statement += L"\n" + *line;
    }
    return statement;
}

bool Console::Execute(const std::wstring& statement) {
    switch (KindOfLine(statement)) {
        case LineKind::Empty:
            return true;
        case LineKind::Lisp:
            return EvaluateLisp(statement);
        case LineKind::Value:
            return EvaluateLisp(Trimmed(statement).substr(1));
        case LineKind::Command:
            return ExecuteCommand(statement);
    }
    return false;
}

bool Console::ExecuteModuleCommands(const std::wstring& line) {
    // A blank ends a command's name as Enter does, so a line may hold several.
    for (const std::wstring& word : Words(line)) {
        const CommandResult result = RunCommand(word);
        if (result == CommandResult::Done) continue;
        if (result == CommandResult::Unknown) {
            PrintLine(L"Unknown command \"" + word + L"\". HELP lists the commands.");
        } else if (result == CommandResult::NoDrawing) {
            PrintLine(L"No drawing is open.");
        }
        return false;
    }
    return true;
}

}  // namespace drafthost
