#pragma once

#include <adesk.h>

/// The LISP function of this name: gives LISP the installation's directory, an empty text when it
/// is not known. Takes no arguments and looks at none. The result is the host's code.
Adesk::Int32 GetKVTPath();
