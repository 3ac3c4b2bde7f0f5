#include "runtime/host/module_call.h"
#include "runtime/host/services.h"
#include "runtime/host/session.h"
#include "runtime/host/support_files.h"
#include "runtime/host/text_output.h"
#include "runtime/host/variables.h"

#include <mutex>

namespace drafthost {

namespace {

/// Names the interpreter that works for the user, so that another thread can interrupt it.
class RunningEvaluation {
  public:
    explicit RunningEvaluation(LispInterpreter& interpreter) {
        const std::lock_guard lock(g_mutex);
        m_outer = std::exchange(g_running, &interpreter);
    }
    RunningEvaluation(const RunningEvaluation&) = delete;
    RunningEvaluation& operator=(const RunningEvaluation&) = delete;
    ~RunningEvaluation() {
        const std::lock_guard lock(g_mutex);
        g_running = m_outer;
    }

    static bool IsAny() {
        const std::lock_guard lock(g_mutex);
        return g_running != nullptr;
    }

    static void Interrupt() {
        const std::lock_guard lock(g_mutex);
        if (g_running != nullptr) g_running->Interrupt();
    }

  private:
    static std::mutex g_mutex;
    static LispInterpreter* g_running;

    LispInterpreter* m_outer;
};

std::mutex RunningEvaluation::g_mutex;
LispInterpreter* RunningEvaluation::g_running = nullptr;

bool ShowError(const LispOutcome& outcome) {
    if (outcome.succeeded) return true;
    const std::wstring line = outcome.ErrorLine();
    if (!line.empty()) PrintLine(line);
    return false;
}

/// The value, nothing for that of `(princ)`, or the error.
bool Show(const LispOutcome& outcome) {
    if (!ShowError(outcome)) return false;
    const std::wstring value = LispPrin1(outcome.value);
    if (!value.empty()) PrintLine(value);
    return true;
}

LispOutcome Evaluate(Document& document, const std::wstring& text) {
    const RunningEvaluation running(document.Lisp());
    return document.Lisp().Evaluate(text);
}

void LoadIfThere(Document& document, const wchar_t* file) {
    const auto path = FindSupportFile(file);
    if (!path) return;
    PrintNote(L"drafthost: loading " + *path);
    ShowError(Evaluate(document, L"(load " + LispPrin1(LispValue::String(*path)) + L")"));
}

/// A drawing with queued expressions, or null.
Document* NextWithQueue() {
    for (const auto& document : HostServices()->documents.Documents()) {
        if (!document->m_queue.empty()) return document.get();
    }
    return nullptr;
}

}  // namespace

void InterruptEvaluation() {
    RunningEvaluation::Interrupt();
}

bool IsBusy() {
    return ModuleCall::Innermost() != nullptr || RunningEvaluation::IsAny();
}

void EvaluateQueues() {
    if (IsBusy()) return;
    DocumentManager& documents = HostServices()->documents;
    while (Document* document = NextWithQueue()) {
        documents.SetCurrent(document);
        const std::wstring expression = document->m_queue.front();
        document->m_queue.pop_front();
        PrintNote(L"drafthost: evaluating " + expression + L" in " + document->docTitle());
        ShowError(Evaluate(*document, expression));
    }
    documents.SetCurrent(documents.Active());
}

bool EvaluateLisp(const std::wstring& text) {
    Document* document = HostServices()->documents.Active();
    if (document == nullptr) {
        PrintLine(L"No drawing is open.");
        return false;
    }
    const bool succeeded = Show(Evaluate(*document, text));
    EvaluateQueues();
    return succeeded;
}

bool CallLisp(Document& document, const std::wstring& function) {
    const RunningEvaluation running(document.Lisp());
    return Show(document.Lisp().Call(function));
}

void RunStartUpFiles(Document& document) {
    static bool isFirst = true;
    const auto always = GetHostVariable(L"ACADLSPASDOC", document);
    if (isFirst || always->AsInteger() != 0) LoadIfThere(document, L"acad.lsp");
    isFirst = false;
    LoadIfThere(document, L"acaddoc.lsp");
    if (!document.Lisp().IsFunction(L"S::STARTUP")) return;
    const RunningEvaluation running(document.Lisp());
    ShowError(document.Lisp().Call(L"S::STARTUP"));
}

bool IsLispUnfinished(const std::wstring& text) {
    return IsLispTextUnfinished(text);
}

}  // namespace drafthost
