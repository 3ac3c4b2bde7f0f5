#pragma once

#include "runtime/lisp/host.h"

namespace drafthost {

class Document;

/// LISP's call of a function that a module defined in `document`: directly when the module
/// registered it so, else by `kInvkSubrMsg`. Throws LispError when the module answers with an
/// error.
LispValue CallModuleFunction(Document& document, const LispExternal& function,
                             const std::vector<LispValue>& arguments);

}  // namespace drafthost
