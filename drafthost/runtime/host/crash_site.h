#pragma once

#include <windows.h>

#include <cstdint>

namespace drafthost {

/// A place in the process's code, kept as text: the image may be gone when it is shown. Needs no
/// heap.
struct CodePlace {
    bool isKnown = false;      ///< a place was found at all
    bool isOfModule = false;   ///< the image is a drafthost module
    wchar_t image[64] = {};    ///< the file's name; empty when the address is in no image
    std::uint64_t offset = 0;  ///< from the image's base, or the address itself
};

CodePlace PlaceOf(const void* address);

/// Whether a frame between the exception and the system's code below could handle it. C++ code of
/// the shared runtime can't: it sees C++ exceptions alone.
bool MayBeHandled(const CONTEXT& context);

/// The innermost place in a module's code on the stack that `context` describes; not known when
/// there is none.
CodePlace InnermostModulePlace(const CONTEXT& context);

}  // namespace drafthost
