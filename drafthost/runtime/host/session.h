#pragma once

namespace drafthost {

/// Evaluates what the modules queued, each expression in its drawing, until nothing is left. Does
/// nothing while a module or LISP is running: the outermost operation does it at its end.
void EvaluateQueues();

}  // namespace drafthost
