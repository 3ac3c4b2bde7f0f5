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

/// Calls a LISP function without arguments in the drawing. An error is shown, the value isn't;
/// false after an error.
bool CallLisp(Document& document, const std::wstring& function);

}  // namespace drafthost
