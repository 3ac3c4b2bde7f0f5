#pragma once

#include "runtime/control.h"
#include "runtime/lisp/value.h"

namespace drafthost {

/// `(command ...)`: runs the commands that the strings name, one after the other. Empty strings and
/// values of other kinds would answer a command's questions; nobody asks any, so they are dropped.
/// A name that is unknown is told on the command line and ends the series.
void RunCommandsOfLisp(const std::vector<LispValue>& arguments);

}  // namespace drafthost
