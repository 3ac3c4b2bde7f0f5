#pragma once

#include <string>

namespace drafthost {

class Document;

/// Evaluates what the modules queued, each expression in its drawing, until nothing is left. Does
/// nothing while a module or LISP is running: the outermost operation does it at its end. Values
/// aren't shown, errors are.
void EvaluateQueues();

/// Whether a module's code or LISP runs.
bool IsBusy();

/// Calls a LISP function without arguments in the drawing. The value is shown, or the error; false
/// after an error.
bool CallLisp(Document& document, const std::wstring& function);

/// What a drawing's LISP world begins with: "acad.lsp" in the session's first drawing, or in every
/// one when ACADLSPASDOC says so, then "acaddoc.lsp", each where it is found as a support file, and
/// then the function S::STARTUP, if there is one by then. Errors are shown, values aren't.
void RunStartUpFiles(Document& document);

}  // namespace drafthost
